// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// One address of an account service. A value.
class HServerAddress {
public:
    HServerAddress() = default;
    /// @p secure says that the service speaks TLS; an address without it is never used. @p number tells
    /// addresses of the same host and port apart.
    HServerAddress(const QString &host, int port, bool secure, int number)
        : m_host(host)
        , m_port(port)
        , m_secure(secure)
        , m_number(number)
    {
    }

    bool isNull() const { return m_host.isEmpty(); }
    QString host() const { return m_host; }
    int port() const { return m_port; }
    bool isSecure() const { return m_secure; }
    int number() const { return m_number; }

private:
    QString m_host;
    int m_port = 0;
    bool m_secure = true;
    int m_number = 0;
};
