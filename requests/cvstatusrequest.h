// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "requests/cvaccountstatus.h"

#include <halvora/hrequest.h>

/// Asks the account service how the account stands. Threads as in HRequest.
class CVStatusRequest final : public HRequest {
    Q_OBJECT
public:
    explicit CVStatusRequest(Connector *connector);
    ~CVStatusRequest() override;

    CVAccountStatus accountStatus() const;

    void buildRequestInternal(QXmlStreamWriter &writer) override;
    void buildResponseInternal(const QDomElement &reply) override;

private:
    CVAccountStatus m_accountStatus;
};
