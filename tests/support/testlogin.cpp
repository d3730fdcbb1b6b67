// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "testlogin.h"

TestLogin::TestLogin(Connector *connector)
    : HLoginRequest(connector)
{
}

TestLogin::~TestLogin() = default;

bool TestLogin::isAllowedToSend(bool serverReady, bool) const
{
    return serverReady;
}
