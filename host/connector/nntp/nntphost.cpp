// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/nntphost.h>

NntpHost::NntpHost(const QString &host, quint16 port, bool ssl)
    : m_host(host)
    , m_port(port)
    , m_ssl(ssl)
{
}
