// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QVector>

/// The desktop's real keyring on a test's own bus, with its files in a folder of its own. It is this
/// process's session bus as well, so it is made before anything speaks to one.
class Keyring {
public:
    explicit Keyring(const QString &busAddress);
    ~Keyring();
    Q_DISABLE_COPY(Keyring)

    /// Returns once the keyring is on the bus and unlocked. Libraries keep their session with it for the
    /// whole process, so one that was stopped is of no use any more.
    bool start();
    /// From now on the keyring needs a prompt for whatever is asked of it.
    void lock();
    void stop();

    /// Through a program of its own, under the names that the application uses.
    bool store(const QString &user, const QString &password);
    /// Empty when there is none.
    QString lookup(const QString &user);
    /// How many items there are; lookup() takes any of them.
    int count(const QString &user);

private:
    QByteArray tool(const QStringList &arguments, const QByteArray &input = QByteArray());

    QTemporaryDir m_home;
    QProcessEnvironment m_environment;
    QProcess m_daemon;
    QDBusConnection m_bus;
};

/// Stands at a bus as the keyring and never replies.
class SilentKeyring final : public QDBusVirtualObject {
    Q_OBJECT
public:
    explicit SilentKeyring(const QDBusConnection &bus);
    ~SilentKeyring() override;
    Q_DISABLE_COPY(SilentKeyring)

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

    /// Refuses every call that was left without a reply.
    void refuseAll();

    QVector<QDBusMessage> calls;

private:
    QDBusConnection m_bus;
};

/// Stands at a bus as the desktop's dialog for the keyring's password, which a user leaves open or cancels.
class Prompter final : public QDBusVirtualObject {
    Q_OBJECT
public:
    explicit Prompter(const QDBusConnection &bus);
    ~Prompter() override;
    Q_DISABLE_COPY(Prompter)

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

    bool isOpen() const { return m_open.type() == QDBusMessage::MethodCallMessage; }
    void cancel();

    int prompts = 0;

private:
    QDBusConnection m_bus;
    QDBusMessage m_open;
};
