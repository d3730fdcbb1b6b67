// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>

/// Reads a password from an open file descriptor, up to a line's end or the end of the data, without making
/// the window wait for it. GUI thread.
class PasswordPipe final : public QObject {
    Q_OBJECT
public:
    /// @p descriptor stays open and belongs to the caller.
    explicit PasswordPipe(int descriptor, QObject *parent = nullptr);

Q_SIGNALS:
    /// Once; empty when there was none or it is too long to be one.
    void finished(const QString &password);

private:
    void read();
    void finish(const QByteArray &password);

    const int m_descriptor;
    QSocketNotifier m_notifier;
    QByteArray m_data;
};
