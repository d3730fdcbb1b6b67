// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/cvbookmarkprovider.h"

#include "bookmarks/cvaddbookmarksdialog.h"
#include "bookmarks/cvbookmarkmanager.h"
#include "connector/cvconnectorplugin.h"

#include <halvora/core.h>
#include <halvora/mainwindow.h>

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

void CVBookmarkProvider::addBookmarks(const QStringList &newsgroups)
{
    if (newsgroups.isEmpty())
        return;
    auto *dialog = new CVAddBookmarksDialog(m_model, m_plugin->core()->mainWindow());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setNewsgroups(newsgroups);
    dialog->setVisible(true);
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
