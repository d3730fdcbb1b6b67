// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/hserver.h>
#include <halvora/iprivatedata.h>
#include <halvora/isettings.h>

#include <QAbstractItemModel>
#include <QHash>
#include <QIcon>
#include <QPixmap>
#include <QSharedPointer>

#include <memory>

class BookmarkItem;
class BookmarkWriter;
class CVBookmarkProvider;
class CVBookmarksRequest;
class CVConnectorPlugin;
class Connector;
class Core;
class QSqlDatabase;
class QSqlQuery;

/// The user's bookmarks: a tree of folders and newsgroups in one table of an SQLite database, shown as a
/// model of one column. Every change is written at once, each item in a transaction of its own; what is shown
/// is what the file holds, unless writing failed. The children of a folder are read when anything first asks
/// about the folder. Bad input is refused silently, errors of the database are told through DBUtils. An index
/// points to its BookmarkItem. GUI thread.
///
/// The sources are by job: the model, the changes that users make, the database, drag and drop, the import of
/// the account's bookmarks, and the options.
class CVBookmarkManager : public QAbstractItemModel, public IPrivateData, public ISettings {
    Q_OBJECT
public:
    /// Opens the database and queues load(). Has no parent; whoever makes it gives it one. @p plugin outlives
    /// it.
    explicit CVBookmarkManager(CVConnectorPlugin *plugin);
    /// Closes the database.
    ~CVBookmarkManager() override;

    /// Owned by this object.
    CVBookmarkProvider *provider() const;

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /// Renames.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    bool canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                         const QModelIndex &parent) const override;
    /// A move inserts fresh items with the rows of the old ones; the view then removes the old ones.
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;
    Qt::DropActions supportedDropActions() const override;
    Qt::DropActions supportedDragActions() const override;
    /// Forgets items whose rows a drop gave to others: in memory only, and as many as there are. Always true.
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /// The items at the top, in the order in which they are shown.
    const QList<BookmarkItem *> &topLevelItems() const { return m_topLevel; }
    /// Null for an invalid index. The item's children are loaded.
    BookmarkItem *itemFromIndex(const QModelIndex &index) const;
    /// Null for a folder, too.
    BookmarkItem *bookmarkFromIndex(const QModelIndex &index) const;

    /// A new folder, first in the folder @p parentIndex or last at the top. Invalid, and nothing added, below
    /// a bookmark.
    QModelIndex addFolder(const QModelIndex &parentIndex);
    /// Adds bookmarks first in the folder @p index, behind the bookmark @p index, or at the top.
    void addBookmarks(const QStringList &newsgroups, const QModelIndex &index);
    /// Removes a bookmark, or a folder with all that is in it.
    void removeBookmark(const QModelIndex &index);
    /// Colours a bookmark or a folder; @p colorName is one of folderColorNames(), or empty.
    void setItemColor(const QModelIndex &index, const QString &colorName);
    /// Remembers whether a folder is shown expanded.
    void setFolderExpanded(const QModelIndex &index, bool expanded);
    /// The folders at the top to show expanded: those remembered so, or else the first two.
    QModelIndexList expandedFolderIndexes() const;

    /// Deletes every bookmark. While an account is logged in, its own are asked for again.
    void clearBookmarks();
    /// Asks the account service for the account's bookmarks; they are added when they come.
    void requestServerBookmarks();

    QList<QWidget *> createOptionWidgets() override;
    void saveOptions(const QList<QWidget *> &widgets) override;
    void clearPrivateData() override;
    void clearPrivateData(const QList<QWidget *> &widgets) override;
    void resetSettings() override;

Q_SIGNALS:
    /// Not emitted at present.
    void bookmarksRefreshed();

public Q_SLOTS:
    void bookmarksRequestFinished();
    /// Reads the top of the tree anew.
    void load();
    void connectorStateChanged(HServer::State state);

protected:
    void loadChildren(BookmarkItem *item) const;
    /// The item of the current row of @p query; the caller owns it.
    static BookmarkItem *itemFromRecord(const QSqlQuery &query, BookmarkItem *parent);
    /// writeItem() in a transaction of its own.
    void saveItem(BookmarkItem *item);
    /// Stores @p item, and the places of it and its siblings.
    void writeItem(const QSqlDatabase &database, BookmarkItem *item);
    /// Stores the places of the children of @p parent, or of the items at the top for null.
    void renumberChildren(BookmarkItem *parent);
    /// Deletes the rows of @p item and of what is loaded below it. Rows below folders that were never opened
    /// stay in the table, where nothing reaches them.
    void deleteItemRows(const QSqlDatabase &database, BookmarkItem *item);
    /// Adds copies of @p folders, which stay the caller's, with the bookmarks in them to the end of the top,
    /// all in one transaction. What is nested deeper, and bookmarks at the top, are left out.
    void importFolders(const QList<BookmarkItem *> &folders);

private:
    void readOptions();
    void openDatabase(const QString &storageName);
    void closeDatabase();
    static QSqlDatabase database();
    static QList<BookmarkItem *> readItems(const QString &statement, const QVariant &id,
                                           BookmarkItem *parent);
    const QList<BookmarkItem *> &siblings(const BookmarkItem *parent) const;
    QPixmap decoration(const BookmarkItem &item) const;
    void insertItem(BookmarkItem *parent, int row, BookmarkItem *item);
    void addBookmark(BookmarkItem *folder, int row, const QString &newsgroup);
    QStringList importFolder(const QSqlDatabase &database, const BookmarkItem &source);
    bool dropNewsgroups(const QStringList &newsgroups, int row, const QModelIndex &parent);
    bool dropBookmarks(const QList<BookmarkItem *> &fresh, int row, const QModelIndex &parent);

    Core *const m_core;
    Connector *const m_connector;
    CVBookmarkProvider *const m_provider;
    bool m_privateDataEnabled = true;
    QList<BookmarkItem *> m_topLevel; ///< owned
    QHash<QString, QIcon> m_folderIcons;
    QPixmap m_newsgroupPixmap;
    std::unique_ptr<BookmarkWriter> m_writer;
    QSharedPointer<CVBookmarksRequest> m_pendingRequest; ///< null while the account is not asked
};
