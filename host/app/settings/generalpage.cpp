// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "generalpage.h"

#include "messagenotifier.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/core.h>
#include <halvora/hautosearchservice.h>
#include <halvora/hnntpdistributor.h>
#include <halvora/localemanager.h>

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QSpinBox>

namespace {

constexpr int mostConnections = 200;

QString english()
{
    return QStringLiteral("en");
}

} // namespace

GeneralPage::GeneralPage(Core *core, ConnectorPlugin *plugin, QWidget *parent)
    : QWidget(parent)
    , m_core(core)
    , m_locale(core->locale())
    , m_plugin(plugin)
    , m_languageCaption(new QLabel(this))
    , m_language(new QComboBox(this))
    , m_connectionsCaption(new QLabel(this))
    , m_connections(new QSpinBox(this))
    , m_connectionsNote(new QLabel(this))
    , m_searchCaption(new QLabel(this))
    , m_search(new QLabel(this))
    , m_notifications(new QCheckBox(this))
{
    m_language->setObjectName(QStringLiteral("language"));
    m_connections->setObjectName(QStringLiteral("connections"));
    m_notifications->setObjectName(QStringLiteral("notifications"));
    fillLanguages();
    build();
    retranslate();
}

void GeneralPage::build()
{
    m_languageCaption->setBuddy(m_language);
    m_connectionsCaption->setBuddy(m_connections);
    m_connections->setRange(1, mostConnections);
    auto *form = new QFormLayout(this);
    form->setContentsMargins(16, 16, 16, 16);
    form->setSpacing(10);
    form->addRow(m_languageCaption, m_language);
    if (m_plugin) {
        m_connections->setValue(m_plugin->connector()->distributor()->wantedConnections());
        form->addRow(m_connectionsCaption, m_connections);
        form->addRow(QString(), m_connectionsNote);
        form->addRow(m_searchCaption, m_search);
        m_notifications->setChecked(MessageNotifier::isWanted(m_core->settings()));
        form->addRow(m_notifications);
    } else {
        for (QWidget *widget :
             std::initializer_list<QWidget *>{m_connectionsCaption, m_connections, m_connectionsNote,
                                              m_searchCaption, m_search, m_notifications})
            widget->hide();
    }
}

// Each language is called what its speakers call it.
void GeneralPage::fillLanguages()
{
    const QStringList languages = m_locale->availableLanguages();
    for (const QString &language : languages) {
        const bool plain = language == english(); // which QLocale takes for one country's
        const QString name = plain ? QStringLiteral("English") : QLocale(language).nativeLanguageName();
        m_language->addItem(name.isEmpty() ? language : name, language);
    }
    m_language->setCurrentIndex(m_language->findData(m_locale->currentLanguage()));
}

void GeneralPage::save()
{
    if (m_plugin) {
        m_plugin->connector()->distributor()->setWantedConnections(m_connections->value());
        MessageNotifier::setWanted(m_core->settings(), m_notifications->isChecked());
    }
    const QString language = m_language->currentData().toString();
    if (language != m_locale->currentLanguage())
        m_locale->setLanguage(language);
}

void GeneralPage::reset()
{
    if (m_plugin) {
        HNntpDistributor *distributor = m_plugin->connector()->distributor();
        distributor->resetWantedConnections();
        m_connections->setValue(distributor->wantedConnections());
        MessageNotifier::reset(m_core->settings());
        m_notifications->setChecked(MessageNotifier::isWanted(m_core->settings()));
    }
    m_locale->reset();
    m_language->setCurrentIndex(m_language->findData(m_locale->currentLanguage()));
}

void GeneralPage::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void GeneralPage::retranslate()
{
    m_languageCaption->setText(tr("&Language:"));
    m_connectionsCaption->setText(tr("&Connections:"));
    m_searchCaption->setText(tr("Automatic search:"));
    m_notifications->setText(tr("Show a desktop &notification for new messages"));
    if (!m_plugin)
        return;
    const Connector *connector = m_plugin->connector();
    const HNntpDistributor *distributor = connector->distributor();
    m_connectionsNote->setText(distributor->isOpen()
                                   ? tr("Your account allows %1.").arg(distributor->maxConnectionsMax())
                                   : tr("What your account allows is known after the login."));
    const int interval = connector->autoSearch()->checkInterval();
    m_search->setText(interval > 0 ? tr("every %n minutes", nullptr, 1 + (interval - 1) / 60)
                                   : tr("not yet known"));
}
