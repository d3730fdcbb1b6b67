// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLocalServer>
#include <QObject>

#include <chrono>

/// Where later starts of the program reach the one that runs with the same profile: a socket for this user
/// alone. GUI thread.
class InstanceServer final : public QObject {
    Q_OBJECT
public:
    static constexpr int mostConnections = 16;

    /// The socket of the program that keeps its data in @p folder, however that is written; empty when the
    /// user has no place for sockets.
    static QString socketPath(const QString &folder);

    InstanceServer();

    /// Takes the place of a socket that a program left behind; whoever calls this keeps the profile's lock
    /// until this object is gone. False when no socket can be made there.
    bool listen(const QString &path);
    /// How long a program may take to say what it wants; before listen().
    void setPatience(std::chrono::milliseconds patience);
    QString errorString() const;

Q_SIGNALS:
    /// Another start of the program wants the window in front and, unless it is empty, @p argument opened.
    void called(const QString &argument);

private:
    void welcome();

    QLocalServer m_server;
    std::chrono::milliseconds m_patience{5000};
    int m_open = 0;
};
