// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/haboutdialog.h>

#include <halvora/connectorplugin.h>

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QVBoxLayout>

HAboutDialog::HAboutDialog(ConnectorPlugin *plugin, const QPixmap &pixmap, QWidget *parent)
    : QDialog(parent)
    , m_plugin(plugin)
    , m_title(new QLabel(this))
    , m_text(new QLabel(this))
{
    setObjectName(QStringLiteral("AboutDialog"));
    auto *icon = new QLabel(this);
    icon->setPixmap(pixmap);
    icon->setAlignment(Qt::AlignTop);

    QFont font = m_title->font();
    font.setPointSizeF(font.pointSizeF() * 1.6);
    font.setBold(true);
    m_title->setFont(font);
    m_title->setTextFormat(Qt::PlainText);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setMinimumWidth(320);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *texts = new QVBoxLayout;
    texts->addWidget(m_title);
    texts->addWidget(m_text);
    texts->addStretch();
    auto *top = new QHBoxLayout;
    top->setSpacing(20);
    top->addWidget(icon);
    top->addLayout(texts, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 12);
    layout->addLayout(top);
    layout->addSpacing(8);
    layout->addWidget(buttons);
    retranslate();
}

void HAboutDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDialog::changeEvent(event);
}

void HAboutDialog::retranslate()
{
    setWindowTitle(tr("About %1").arg(m_plugin->displayName()));
    m_title->setText(m_plugin->displayName());
    m_text->setText(tr("Version %1 for %2\n\nA Usenet client: newsgroups, NZB files and your account.\n\n"
                       "Account service: %3 (%4)\nBuilt with Qt %5. Published under the MIT licence.")
                        .arg(QCoreApplication::applicationVersion(), m_plugin->platformDisplayName(),
                             m_plugin->productName(), m_plugin->productTag(), QLatin1String(qVersion())));
}
