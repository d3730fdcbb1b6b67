// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>
#include <QtGlobal>

/// A port on loopback that is ours for as long as this lives, so that nobody else answers there meanwhile.
class LoopbackPort {
public:
    /// Where connecting is refused, on 127.0.0.@p host. Port 0 is one that nobody has.
    explicit LoopbackPort(quint8 host = 1, quint16 port = 0);
    ~LoopbackPort();
    Q_DISABLE_COPY(LoopbackPort)

    /// From now on up to @p backlog connections wait to be accepted.
    void listen(int backlog);
    /// From now on connecting neither succeeds nor fails, as with a host that is switched off.
    void becomeDeaf();

    int descriptor() const { return m_descriptor; }
    quint16 port() const { return m_port; }

private:
    quint8 m_host;
    int m_descriptor;
    quint16 m_port;
    QVector<int> m_fillers;
};
