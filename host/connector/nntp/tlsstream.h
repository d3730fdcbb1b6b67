// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bytestream.h"

#include <memory>

class QSslSocket;
class QString;
class WaitBudget;

/// A connection under TLS 1.2 or later from the first byte.
class TlsStream final : public ByteStream {
public:
    /// Owns @p descriptor, which is connected.
    explicit TlsStream(int descriptor);
    ~TlsStream() override;

    /// Shakes hands. The certificate has to name @p host among its subject alternative names and come from an
    /// authority of the system's or of @p authorityFile, which may be empty.
    bool start(const QString &host, const QString &authorityFile, const WaitBudget &budget);

    bool isOpen() const override;
    int read(char *to, int room) override;
    void wait(std::chrono::milliseconds time) override;
    bool write(const QByteArray &bytes) override;

private:
    std::unique_ptr<QSslSocket> m_socket;
};
