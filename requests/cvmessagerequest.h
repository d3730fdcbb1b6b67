// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/hrequest.h>

#include <QStringList>

/// Tells the account service which of its messages were read and which were deleted, so that its copy
/// follows. Threads as in HRequest.
class CVMessageRequest final : public HRequest {
public:
    explicit CVMessageRequest(Connector *connector);
    ~CVMessageRequest() override;

    /// A uid that the list holds already is not added again; uids differ by letter case, too.
    void addReadMessage(const QString &uid);
    /// The same for the messages that were deleted. A message may have been both.
    void addDeletedMessage(const QString &uid);

    /// Whether the service said that it has taken the report.
    bool hasSucceeded() const;

    void buildRequestInternal(QXmlStreamWriter &writer) override;
    void buildResponseInternal(const QDomElement &reply) override;

private:
    QStringList m_readUids;
    QStringList m_deletedUids;
    bool m_success = false;
};
