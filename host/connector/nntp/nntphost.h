// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>

#include <QString>

/// Where a news server listens, and whether it speaks TLS from the first byte there. A plain value: any
/// thread may copy it, and a copy costs no more than sharing its text.
class HALVORA_CONNECTOR_EXPORT NntpHost {
public:
    /// No host: an empty name and port 0, which nothing can be connected to.
    NntpHost() = default;
    NntpHost(QString host, quint16 port, bool ssl);

    QString host() const { return m_host; }
    quint16 port() const { return m_port; }
    bool isSsl() const { return m_ssl; }

    /// Names are compared as they were given, letter case included.
    friend bool operator==(const NntpHost &one, const NntpHost &other)
    {
        return one.m_port == other.m_port && one.m_ssl == other.m_ssl && one.m_host == other.m_host;
    }
    friend bool operator!=(const NntpHost &one, const NntpHost &other) { return !(one == other); }

private:
    QString m_host;
    quint16 m_port = 0;
    bool m_ssl = false;
};

Q_DECLARE_TYPEINFO(NntpHost, Q_MOVABLE_TYPE);
