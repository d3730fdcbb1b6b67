// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bookmarks/cvbookmarkmanager.h"

#include <halvora/core.h>

#include <QAbstractItemModelTester>
#include <QTemporaryDir>
#include <QVector>

#include <memory>

class CVConnectorPlugin;
struct sqlite3;

/// The model with its inner operations open to tests.
class OpenBookmarkManager : public CVBookmarkManager {
public:
    using CVBookmarkManager::createIndex;
    using CVBookmarkManager::CVBookmarkManager;
    using CVBookmarkManager::deleteItemRows;
    using CVBookmarkManager::importFolders;
    using CVBookmarkManager::itemFromRecord;
    using CVBookmarkManager::loadChildren;
    using CVBookmarkManager::renumberChildren;
    using CVBookmarkManager::saveItem;
    using CVBookmarkManager::writeItem;
};

/// One row of the table, each value as text; "NULL" for none.
using BookmarkRow = QStringList;

/// A profile of its own with a bookmark model over a real file, which can be closed and opened again.
class BookmarkStore {
public:
    /// Opens the model and loads it when @p open is set; otherwise open() does.
    explicit BookmarkStore(bool openNow = true);
    ~BookmarkStore();

    void open();
    void close();
    /// The model is checked with QAbstractItemModelTester, fatally, until the next close() or leave(). Tests
    /// that watch which statements run or what is read when do without, because the tester asks for
    /// everything.
    void check();
    /// Ends what check() began.
    void leave() { m_tester.reset(); }

    Core &core() { return *m_core; }
    CVConnectorPlugin *plugin() { return m_plugin.get(); }
    OpenBookmarkManager &model() { return *m_model; }
    /// The database file; it need not exist.
    QString path() const;
    /// The handle that the model's connection has.
    static sqlite3 *handle();

    /// The index of the item that is reached by these rows from the top.
    QModelIndex at(const QVector<int> &rows) const;
    QModelIndex addFolder(const QString &name, const QModelIndex &parent = QModelIndex());
    /// The display names below @p parent.
    QStringList names(const QModelIndex &parent = QModelIndex()) const;

    /// Every row of the file at @p path by its id, read over a connection of its own.
    static QVector<BookmarkRow> rows(const QString &path);
    QVector<BookmarkRow> rows() const { return rows(path()); }
    /// Name or newsgroup and order of the rows below @p parentId, "NULL" for the top, sorted by order.
    QStringList orders(const QString &parentId) const;
    /// Runs @p statements on the file over a connection of its own.
    static void execute(const QString &path, const QString &statements);
    void execute(const QString &statements) const { execute(path(), statements); }

private:
    QTemporaryDir m_profile;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<CVConnectorPlugin> m_plugin;
    std::unique_ptr<OpenBookmarkManager> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};
