// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bytestream.h"

/// A connection in the clear. Straight on the descriptor: through the buffers of a QTcpSocket a long list
/// takes several times as long.
class PlainStream final : public ByteStream {
public:
    /// Owns @p descriptor, which is connected and does not block.
    explicit PlainStream(int descriptor);
    ~PlainStream() override;

    bool isOpen() const override { return m_isOpen; }
    int read(char *to, int room) override;
    void wait(std::chrono::milliseconds time) override;
    bool write(const QByteArray &bytes) override;

private:
    void flush();

    const int m_descriptor;
    QByteArray m_unsent;
    bool m_isOpen = true;
};
