// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/hrequest.h>

#include <QList>

class BookmarkItem;

/// Asks the account service for the account's bookmarks: newsgroups in named folders. It answers with its
/// base's meta-object. Threads as in HRequest.
class CVBookmarksRequest final : public HRequest { // clazy:exclude=missing-qobject-macro
public:
    explicit CVBookmarksRequest(Connector *connector);
    /// Deletes the folders, and with them the bookmarks in them.
    ~CVBookmarksRequest() override;

    /// The folders of the reply in its order, each with its newsgroups; none before a reply. They stay the
    /// request's.
    QList<BookmarkItem *> folders() const;

    void buildRequestInternal(QXmlStreamWriter &writer) override;
    /// A folder without a name is never passed: the service has to name its folders. The worker stays there
    /// until it is interrupted, and nothing of the reply is left then.
    void buildResponseInternal(const QDomElement &reply) override;

private:
    void clear();

    QList<BookmarkItem *> m_folders; ///< owned
};
