// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>
#include <halvora/hrequest.h>
#include <halvora/hstorageid.h>
#include <halvora/nzbfile.h>

/// Asks the account service what is in a group of files. Threads as in HRequest.
class HALVORA_CONNECTOR_EXPORT HDetailsRequest : public HRequest {
    Q_OBJECT
public:
    /// @p id is one that isAcceptable().
    HDetailsRequest(Connector *connector, const HStorageId &id);
    ~HDetailsRequest() override;

    /// Whether @p id can name a group of files: 1 to 200 letters, digits, dots, hyphens and underscores. A
    /// link may carry anything. Any thread.
    static bool isAcceptable(const HStorageId &id);

    /// What is in the group; empty unless isSuccessful().
    NzbFile file() const;

    /// Also false when the reply holds nothing that can be shown.
    bool isSuccessful() const override;
    void buildRequestInternal(QXmlStreamWriter &writer) override;
    void buildResponseInternal(const QDomElement &reply) override;

private:
    const HStorageId m_id;
    NzbFile m_file;
    bool m_isReadable = false;
};
