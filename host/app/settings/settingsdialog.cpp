// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "settingsdialog.h"

#include "generalpage.h"
#include "privacypage.h"

#include <halvora/core.h>
#include <halvora/privatedataregistry.h>
#include <halvora/settingsregistry.h>

#include <QDialogButtonBox>
#include <QEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

constexpr int pageWidth = 64; // letters; the tabs alone would make a narrow column

} // namespace

SettingsDialog::SettingsDialog(Core *core, ConnectorPlugin *plugin, QWidget *parent)
    : QDialog(parent)
    , m_core(core)
    , m_pages(new QTabWidget(this))
    , m_general(new GeneralPage(core, plugin, m_pages))
    , m_privacy(new PrivacyPage(*core->privateData(), m_pages))
    , m_reset(new QPushButton(this))
{
    setObjectName(QStringLiteral("SettingsDialog"));
    m_pages->setObjectName(QStringLiteral("pages"));
    m_reset->setObjectName(QStringLiteral("resetSettings"));
    build();
    retranslate();
}

void SettingsDialog::build()
{
    m_pages->addTab(m_general, QString());
    m_pages->addTab(m_privacy, QString());
    m_pages->setMinimumWidth(pageWidth * fontMetrics().averageCharWidth());
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->addButton(m_reset, QDialogButtonBox::ResetRole);
    m_reset->setAutoDefault(false);
    connect(m_reset, &QPushButton::clicked, this, &SettingsDialog::askWhetherToReset);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(16);
    layout->addWidget(m_pages);
    layout->addWidget(buttons);
}

void SettingsDialog::accept()
{
    m_privacy->save();
    m_general->save();
    QDialog::accept();
}

void SettingsDialog::askWhetherToReset()
{
    auto *question = new QMessageBox(QMessageBox::Question, tr("Reset Settings"),
                                     tr("Do you want all settings to be what they were at first?"),
                                     QMessageBox::Cancel, this);
    question->setObjectName(QStringLiteral("ResetQuestion"));
    question->setAttribute(Qt::WA_DeleteOnClose);
    QPushButton *reset = question->addButton(tr("&Reset"), QMessageBox::DestructiveRole);
    reset->setObjectName(QStringLiteral("reset"));
    reset->setAutoDefault(false);
    question->setDefaultButton(QMessageBox::Cancel);
    connect(reset, &QPushButton::clicked, this, &SettingsDialog::resetSettings);
    question->open();
}

void SettingsDialog::resetSettings()
{
    const SettingsRegistry *registry = m_core->settingsRegistry();
    const QList<ISettings *> parts = registry->parts();
    for (ISettings *part : parts) {
        // One part's new settings may end another.
        if (registry->parts().contains(part))
            part->resetSettings();
    }
    m_general->reset();
    m_privacy->reload();
}

void SettingsDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDialog::changeEvent(event);
}

void SettingsDialog::retranslate()
{
    setWindowTitle(tr("Settings"));
    m_pages->setTabText(m_pages->indexOf(m_general), tr("&General"));
    m_pages->setTabText(m_pages->indexOf(m_privacy), tr("&Privacy"));
    m_reset->setText(tr("&Reset settings"));
}
