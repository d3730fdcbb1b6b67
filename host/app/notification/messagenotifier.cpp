// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "messagenotifier.h"

#include "desktopnotifier.h"

#include <halvora/hmessage.h>
#include <halvora/hmessagemanager.h>
#include <halvora/mainwindow.h>

#include <QAbstractItemView>
#include <QDBusConnection>
#include <QDockWidget>
#include <QSettings>

#include <algorithm>

namespace {

QString key()
{
    return QStringLiteral("DesktopNotifications");
}

} // namespace

MessageNotifier::MessageNotifier(const QSettings &settings, const HMessageManager *messages,
                                 MainWindow *window, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_messages(messages)
    , m_window(window)
{
    connect(messages, &HMessageManager::newMessagesArrived, this, &MessageNotifier::tell);
    // Another account's, which it has had before.
    connect(messages, &QAbstractItemModel::modelReset, this, &MessageNotifier::rememberAll);
    rememberAll();
}

bool MessageNotifier::isWanted(const QSettings &settings)
{
    return settings.value(key(), true).toBool();
}

void MessageNotifier::setWanted(QSettings &settings, bool wanted)
{
    settings.setValue(key(), wanted);
}

void MessageNotifier::reset(QSettings &settings)
{
    settings.remove(key());
}

void MessageNotifier::tell()
{
    const QStringList texts = takeNewTexts();
    if (texts.isEmpty() || !isWanted(m_settings) || m_window->isActiveWindow())
        return;
    // Not before there is something to show: to reach the desktop takes a moment.
    if (!m_desktop) {
        m_desktop = new DesktopNotifier(QDBusConnection::sessionBus(), this);
        connect(m_desktop, &DesktopNotifier::activated, this, &MessageNotifier::showMessages);
    }
    m_desktop->notify(tr("%Ln new messages", nullptr, texts.size()),
                      texts.size() == 1 ? texts.first() : QString());
}

QStringList MessageNotifier::takeNewTexts()
{
    QStringList texts;
    for (int row = 0; row < m_messages->rowCount(); ++row) {
        const HMessage message = m_messages->messageAt(row);
        if (!message.isRead() && !m_known.contains(message.uid()))
            texts.append(message.text());
    }
    rememberAll();
    return texts;
}

void MessageNotifier::rememberAll()
{
    m_known.clear();
    for (int row = 0; row < m_messages->rowCount(); ++row)
        m_known.insert(m_messages->messageAt(row).uid());
}

void MessageNotifier::showMessages()
{
    m_window->bringToFront();
    // The provider made the panel; here it is known by what it shows.
    const QList<QDockWidget *> panels = m_window->findChildren<QDockWidget *>();
    for (QDockWidget *panel : panels) {
        const QList<QAbstractItemView *> views = panel->findChildren<QAbstractItemView *>();
        const bool shows = std::any_of(views.cbegin(), views.cend(), [this](const QAbstractItemView *view) {
            return view->model() == m_messages;
        });
        if (shows) {
            panel->show();
            panel->raise(); // it may stand behind another one as a tab
        }
    }
}
