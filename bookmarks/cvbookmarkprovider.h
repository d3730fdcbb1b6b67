// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bookmarks/bookmarkednames.h"

#include <halvora/bookmarkprovider.h>

class CVBookmarkManager;
class CVConnectorPlugin;

/// Answers the program which newsgroups are bookmarked. The model tells it of each change. GUI thread.
class CVBookmarkProvider : public BookmarkProvider {
    Q_OBJECT
public:
    /// @p model owns the provider; @p plugin is not owned and leads to the main window.
    CVBookmarkProvider(CVBookmarkManager *model, CVConnectorPlugin *plugin);
    ~CVBookmarkProvider() override;

    bool isBookmarked(const QString &newsgroup) const override;
    QStringList bookmarkedNewsgroups() const override;
    /// None.
    QStringList recommendedNewsgroups() const override;
    void addBookmarks(const QStringList &newsgroups) override;
    /// Does nothing: the model tells of every change.
    void refresh() override;

    void noteBookmarkAdded(const QString &newsgroup);
    /// Takes one entry of that name out; silent when there is none.
    void noteBookmarkRemoved(const QString &newsgroup);
    void setBookmarkedNewsgroups(const QStringList &newsgroups);

private:
    CVBookmarkManager *const m_model;
    CVConnectorPlugin *const m_plugin;
    BookmarkedNames m_names;
};
