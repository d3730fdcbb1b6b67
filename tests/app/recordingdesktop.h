// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <QVector>

/// Stands at a bus as the desktop's service for notifications and writes down what it is to show.
class RecordingDesktop final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public:
    struct Notification {
        QString application;
        uint replaced;
        QString icon;
        QString title;
        QString body;
        QStringList actions;
        QVariantMap hints;
        int timeout;
    };
    enum Mood { Helpful, Refusing, Silent };

    explicit RecordingDesktop(const QDBusConnection &bus);
    ~RecordingDesktop() override;
    Q_DISABLE_COPY(RecordingDesktop)

    /// The number that the next notification gets.
    uint nextNumber() const { return m_next; }
    /// Answers the oldest call that was left without an answer, as a helpful one would have.
    void answer();

    Mood mood = Helpful;
    QStringList capabilities{QStringLiteral("body"), QStringLiteral("actions"),
                             QStringLiteral("body-markup")};
    QVector<Notification> shown;
    QVector<QDBusMessage> unanswered;
    int questions = 0;

public Q_SLOTS:
    QStringList GetCapabilities();
    uint Notify(const QString &application, uint replaced, const QString &icon, const QString &title,
                const QString &body, const QStringList &actions, const QVariantMap &hints, int timeout);

Q_SIGNALS:
    void ActionInvoked(uint id, const QString &action);
    void NotificationClosed(uint id, uint reason);

private:
    bool leave();

    QDBusConnection m_bus;
    uint m_next = 41;
};
