// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/nntphost.h>

#include <utility>

NntpHost::NntpHost(QString host, quint16 port, bool ssl)
    : m_host(std::move(host))
    , m_port(port)
    , m_ssl(ssl)
{
}
