// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "requests/cvaccountstatus.h"

#include <halvora/hloginrequest.h>

/// The provider's login: tests the user's name and password at a news server first, and reads the account's
/// status out of the reply. Threads as in HRequest.
class CVLoginRequest final : public HLoginRequest {
    Q_OBJECT
public:
    explicit CVLoginRequest(Connector *connector);
    ~CVLoginRequest() override;

    CVAccountStatus accountStatus() const;

    /// A login may go whenever the server is ready, whether or not one is applied.
    bool isAllowedToSend(bool serverReady, bool connected) const override;
    /// Asks the first news server that accepts a connection whether it knows the user. Blocks; worker only.
    bool prepare() override;
    void buildResponseInternal(const QDomElement &reply) override;

private:
    CVAccountStatus m_accountStatus;
};
