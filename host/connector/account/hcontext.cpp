// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hcontext.h>

#include <halvora/hloginrequest.h>

HContext::HContext() = default;

HContext::~HContext() = default;

void HContext::updateFromLogin(const HLoginRequest *login)
{
    m_lastLogin = QDateTime::currentDateTime();
    m_nntpHostCount = login->nntpHosts().size();
    Q_EMIT changed();
}

QDateTime HContext::lastLogin() const
{
    return m_lastLogin;
}

int HContext::nntpHostCount() const
{
    return m_nntpHostCount;
}
