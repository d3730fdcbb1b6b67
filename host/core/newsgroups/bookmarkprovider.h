// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QObject>
#include <QStringList>

/// Answers which newsgroups the user bookmarked and adds more; a provider's plug-in registers one with
/// PluginManager::setBookmarkProvider. The order of the virtual operations is part of the interface.
/// GUI thread.
///
/// The signals may come while a model is between the beginning and the end of a change and a transaction is
/// open: a slot asks the provider what it wants to know, and never the model behind it.
class HALVORA_CORE_EXPORT BookmarkProvider : public QObject {
    Q_OBJECT
public:
    explicit BookmarkProvider(QObject *parent = nullptr);
    ~BookmarkProvider() override;

    /// Whether @p newsgroup is bookmarked under exactly this name. Asked for every row of a long list.
    virtual bool isBookmarked(const QString &newsgroup) const = 0;
    /// The bookmarked newsgroups; a name stands in it once for each of its bookmarks.
    virtual QStringList bookmarkedNewsgroups() const = 0;
    /// Newsgroups that the provider would have the user bookmark.
    virtual QStringList recommendedNewsgroups() const = 0;
    /// Asks the user where bookmarks of @p newsgroups go, and adds them then. Returns at once.
    virtual void addBookmarks(const QStringList &newsgroups) = 0;
    /// Tells a provider whose bookmarks live elsewhere to look there again.
    virtual void refresh() = 0;

Q_SIGNALS:
    void bookmarkAdded(const QString &newsgroup);
    void bookmarkRemoved(const QString &newsgroup);
    /// Any number of bookmarks came or went.
    void bookmarksChanged();
};
