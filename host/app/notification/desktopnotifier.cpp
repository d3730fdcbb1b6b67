// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "desktopnotifier.h"

#include "notificationtext.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

#include <utility>

namespace {

constexpr int longestTitle = 100;
constexpr int longestBody = 300;
constexpr int patience = 10'000; // milliseconds

QString service()
{
    return QStringLiteral("org.freedesktop.Notifications");
}

QString path()
{
    return QStringLiteral("/org/freedesktop/Notifications");
}

QString click()
{
    return QStringLiteral("default");
}

QString desktopEntry()
{
    return QStringLiteral("org.halvora.Halvora");
}

QDBusMessage callOf(const QString &method)
{
    return QDBusMessage::createMethodCall(service(), path(), service(), method);
}

} // namespace

DesktopNotifier::DesktopNotifier(const QDBusConnection &bus, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
{
    // From anybody: the bus would have to be waited for to say who the service is.
    // Qt finds a slot faster by its name without blanks.
    // clang-format off
    m_bus.connect(QString(), path(), service(), QStringLiteral("ActionInvoked"), this,
                  SLOT(actionInvoked(uint,QString,QDBusMessage)));
    m_bus.connect(QString(), path(), service(), QStringLiteral("NotificationClosed"), this,
                  SLOT(notificationClosed(uint,uint,QDBusMessage)));
    // clang-format on
}

void DesktopNotifier::notify(const QString &title, const QString &body)
{
    m_title = NotificationText::plainLine(title, longestTitle);
    m_body = NotificationText::plainLine(body, longestBody);
    // What is shown has to be known before it can be replaced.
    m_again = m_busy;
    if (!m_busy)
        askWhatIsUnderstood();
}

void DesktopNotifier::askWhatIsUnderstood()
{
    whenAnswered(m_bus.asyncCall(callOf(QStringLiteral("GetCapabilities")), patience),
                 [this](const QDBusPendingCall &call) {
                     const QDBusPendingReply<QStringList> reply = call;
                     if (!reply.isError())
                         show(reply.value());
                 });
}

void DesktopNotifier::show(const QStringList &capabilities)
{
    const bool readsMarkup = capabilities.contains(QStringLiteral("body-markup"));
    const bool canBeClicked = capabilities.contains(QStringLiteral("actions"));
    m_again = false; // this is the newest
    QDBusMessage message = callOf(QStringLiteral("Notify"));
    message << QCoreApplication::applicationName() << m_shown << desktopEntry() << m_title
            << (readsMarkup ? NotificationText::escaped(m_body) : m_body)
            << (canBeClicked ? QStringList{click(), tr("Show")} : QStringList())
            << QVariantMap{{QStringLiteral("desktop-entry"), desktopEntry()}} << -1;
    whenAnswered(m_bus.asyncCall(message, patience), [this](const QDBusPendingCall &call) {
        const QDBusPendingReply<uint> reply = call;
        m_shown = reply.isError() ? 0 : reply.value();
        m_service = reply.reply().service();
    });
}

template <typename Answered>
void DesktopNotifier::whenAnswered(const QDBusPendingCall &call, Answered answered)
{
    m_busy = true;
    auto *watcher = new QDBusPendingCallWatcher(call, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, answered] {
        watcher->deleteLater();
        m_busy = false;
        answered(*watcher);
        if (!m_busy && std::exchange(m_again, false))
            askWhatIsUnderstood();
    });
}

bool DesktopNotifier::isOurs(uint id, const QDBusMessage &message) const
{
    return id != 0 && id == m_shown && message.service() == m_service;
}

void DesktopNotifier::actionInvoked(uint id, const QString &action, const QDBusMessage &message)
{
    if (isOurs(id, message) && action == click())
        Q_EMIT activated();
}

void DesktopNotifier::notificationClosed(uint id, uint reason, const QDBusMessage &message)
{
    Q_UNUSED(reason)
    if (isOurs(id, message))
        m_shown = 0;
}
