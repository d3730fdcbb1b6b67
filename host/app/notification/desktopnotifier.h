// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>

class QDBusMessage;
class QDBusPendingCall;

/// Shows one notification of the program on the desktop. Nothing waits for the desktop's answers, and where
/// none come nothing is shown and nothing is said. GUI thread.
class DesktopNotifier final : public QObject {
    Q_OBJECT
public:
    explicit DesktopNotifier(const QDBusConnection &bus, QObject *parent = nullptr);

    /// Shows @p title and @p body, both plain text, in the place of what was shown before. What is too long
    /// is cut.
    void notify(const QString &title, const QString &body);

Q_SIGNALS:
    /// A person has clicked the notification.
    void activated();

private Q_SLOTS:
    void actionInvoked(uint id, const QString &action, const QDBusMessage &message);
    void notificationClosed(uint id, uint reason, const QDBusMessage &message);

private:
    void askWhatIsUnderstood();
    void show(const QStringList &capabilities);
    template <typename Answered> void whenAnswered(const QDBusPendingCall &call, Answered answered);
    bool isOurs(uint id, const QDBusMessage &message) const;

    QDBusConnection m_bus;
    QString m_title;
    QString m_body;
    QString m_service;   ///< the unique name of who showed it, so that nobody else can tell of a click
    uint m_shown = 0;    ///< the number of what is shown; 0 when there is none
    bool m_busy = false; ///< a call has not been answered
    bool m_again = false;
};
