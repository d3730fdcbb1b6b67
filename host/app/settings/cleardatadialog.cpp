// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "cleardatadialog.h"

#include "privatedataoptions.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

ClearDataDialog::ClearDataDialog(const PrivateDataRegistry &registry, QWidget *parent)
    : QDialog(parent)
    , m_question(new QLabel(this))
    , m_options(new PrivateDataOptions(registry, this))
    , m_warning(new QLabel(this))
    , m_clear(new QPushButton(this))
{
    setObjectName(QStringLiteral("ClearDataDialog"));
    m_options->setObjectName(QStringLiteral("dataToClear"));
    m_clear->setObjectName(QStringLiteral("clear"));
    build();
    retranslate();
}

void ClearDataDialog::build()
{
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    buttons->addButton(m_clear, QDialogButtonBox::DestructiveRole);
    // Return does no harm, wherever the focus is.
    m_clear->setAutoDefault(false);
    QPushButton *cancel = buttons->button(QDialogButtonBox::Cancel);
    cancel->setDefault(true);
    cancel->setFocus();
    connect(m_clear, &QPushButton::clicked, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    QFont font = m_warning->font();
    font.setBold(true);
    m_warning->setFont(font);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSpacing(12);
    for (QWidget *widget : std::initializer_list<QWidget *>{m_question, m_options, m_warning})
        layout->addWidget(widget);
    layout->addStretch();
    layout->addWidget(buttons);
}

void ClearDataDialog::accept()
{
    m_options->clear();
    QDialog::accept();
}

void ClearDataDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDialog::changeEvent(event);
}

void ClearDataDialog::retranslate()
{
    setWindowTitle(tr("Clear Private Data"));
    m_question->setText(tr("What is to be deleted now?"));
    m_warning->setText(tr("What you delete here can not be brought back."));
    m_clear->setText(tr("C&lear"));
}
