// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/cvbookmarkprovider.h"

#include "bookmarks/cvbookmarkmanager.h"
#include "connector/cvconnectorplugin.h"

CVBookmarkProvider::CVBookmarkProvider(CVBookmarkManager *model, CVConnectorPlugin *plugin)
    : BookmarkProvider(model)
    , m_model(model)
    , m_plugin(plugin)
{
}

CVBookmarkProvider::~CVBookmarkProvider() = default;

bool CVBookmarkProvider::isBookmarked(const QString &newsgroup) const
{
    return m_names.contains(newsgroup);
}

QStringList CVBookmarkProvider::bookmarkedNewsgroups() const
{
    return m_names.list();
}

QStringList CVBookmarkProvider::recommendedNewsgroups() const
{
    return {};
}

// There is no window yet that asks where the bookmarks go.
void CVBookmarkProvider::addBookmarks(const QStringList &newsgroups)
{
    Q_UNUSED(newsgroups)
    Q_UNUSED(m_model)
    Q_UNUSED(m_plugin)
}

void CVBookmarkProvider::refresh() {}

void CVBookmarkProvider::noteBookmarkAdded(const QString &newsgroup)
{
    m_names.append(newsgroup);
    Q_EMIT bookmarkAdded(newsgroup);
}

void CVBookmarkProvider::noteBookmarkRemoved(const QString &newsgroup)
{
    if (m_names.removeFirst(newsgroup))
        Q_EMIT bookmarkRemoved(newsgroup);
}

void CVBookmarkProvider::setBookmarkedNewsgroups(const QStringList &newsgroups)
{
    m_names.assign(newsgroups);
    Q_EMIT bookmarksChanged();
}
