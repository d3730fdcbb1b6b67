// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "privacypage.h"

#include "cleardatadialog.h"
#include "privatedataoptions.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

PrivacyPage::PrivacyPage(const PrivateDataRegistry &registry, QWidget *parent)
    : QWidget(parent)
    , m_registry(registry)
    , m_intro(new QLabel(this))
    , m_options(new PrivateDataOptions(registry, this))
    , m_clear(new QPushButton(this))
{
    m_intro->setObjectName(QStringLiteral("privacyIntro"));
    m_options->setObjectName(QStringLiteral("privateData"));
    m_clear->setObjectName(QStringLiteral("clearPrivateData"));
    m_clear->setAutoDefault(false);
    connect(m_clear, &QPushButton::clicked, this, &PrivacyPage::askWhatToClear);
    build();
    retranslate();
}

void PrivacyPage::build()
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(12);
    layout->addWidget(m_intro);
    layout->addWidget(m_options);
    layout->addStretch();
    layout->addWidget(m_clear, 0, Qt::AlignLeft);
    showWhatThereIs();
}

void PrivacyPage::save()
{
    m_options->save();
}

void PrivacyPage::reload()
{
    m_options->reload();
    showWhatThereIs();
    retranslate();
}

void PrivacyPage::showWhatThereIs()
{
    m_options->setHidden(m_options->isEmpty());
    m_clear->setHidden(m_options->isEmpty());
}

void PrivacyPage::askWhatToClear()
{
    auto *dialog = new ClearDataDialog(m_registry, window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void PrivacyPage::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void PrivacyPage::retranslate()
{
    m_intro->setText(m_options->isEmpty() ? tr("No part of the program keeps private data.")
                                          : tr("What is deleted when private data is cleared:"));
    m_clear->setText(tr("Cl&ear private data…"));
}
