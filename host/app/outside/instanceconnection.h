// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>

class QLocalSocket;

/// One program that has called: reads its one line, answers and is gone. Nothing that it sends or leaves out
/// keeps this object longer than the time it was given, or makes it keep more than one line. GUI thread.
class InstanceConnection final : public QObject {
    Q_OBJECT
public:
    /// Takes @p socket over and destroys itself in the end.
    InstanceConnection(QLocalSocket *socket, std::chrono::milliseconds patience, QObject *parent);

Q_SIGNALS:
    /// The other program has its answer already.
    void called(const QString &argument);

private:
    void readLine();
    void end();

    QLocalSocket *const m_socket;
    QTimer m_patience;
};
