// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <chrono>

/// The bytes of one connection, however they travel. For one thread that needs no event loop.
class ByteStream {
public:
    ByteStream() = default;
    virtual ~ByteStream() = default;
    Q_DISABLE_COPY(ByteStream)

    /// False as soon as it was noticed that the other end has gone; bytes that came before may be left.
    virtual bool isOpen() const = 0;
    /// Takes at most @p room bytes that have arrived; 0 when there are none. Does not wait.
    virtual int read(char *to, int room) = 0;
    /// Waits until bytes have arrived or the other end has gone, at most @p time.
    virtual void wait(std::chrono::milliseconds time) = 0;
    /// Does not wait: what the system does not take now goes out during wait().
    virtual bool write(const QByteArray &bytes) = 0;
};
