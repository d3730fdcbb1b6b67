// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/hloginrequest.h>

/// A login that may go whenever the server is ready, as a provider's own login does.
class TestLogin final : public HLoginRequest {
    Q_OBJECT
public:
    explicit TestLogin(Connector *connector);
    ~TestLogin() override;

    bool isAllowedToSend(bool serverReady, bool connected) const override;
};
