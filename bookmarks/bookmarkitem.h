// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QSharedDataPointer>
#include <QStringList>

class BookmarkItem;

enum class BookmarkKind : qint32 {
    Bookmark = 0, ///< a bookmarked newsgroup
    Folder = 1,
};

/// The names under which colours of bookmarks are stored, all in lower case.
QStringList folderColorNames();

/// What a BookmarkItem holds.
class BookmarkItemData : public QSharedData {
public:
    bool saved = true; ///< unchanged since it was written
    bool childrenLoaded = false;
    bool expanded = false;
    BookmarkKind kind = BookmarkKind::Bookmark;
    qint64 id = -1;       ///< of the row; stored when above 0
    qint64 parentId = -1; ///< as the row last read had it; -1 for none or unknown
    BookmarkItem *parent = nullptr;
    QString color;
    QString name;              ///< a folder's name, or a newsgroup's whole name
    mutable QString shortName; ///< filled when it is first asked for, like the next one
    mutable QString tinyName;
    QList<BookmarkItem *> children; ///< owned, in the order in which they are shown
};

/// A folder or a bookmarked newsgroup in the tree of bookmarks: a handle on its data that lives on the heap,
/// is addressed by pointer and owns its children. Knows nothing of the database. GUI thread.
class BookmarkItem {
public:
    /// Stands for nothing and counts as saved until it is changed.
    BookmarkItem();
    BookmarkItem(BookmarkKind kind, BookmarkItem *parent);
    /// Deletes the children, however deep they are nested.
    ~BookmarkItem();
    Q_DISABLE_COPY(BookmarkItem)

    bool isFolder() const { return d->kind == BookmarkKind::Folder; }
    bool hasId() const { return d->id > 0; }

    bool isSaved() const { return d->saved; }
    bool childrenLoaded() const { return d->childrenLoaded; }
    bool isExpanded() const { return d->expanded; }
    BookmarkKind kind() const { return d->kind; }
    qint64 id() const { return d->id; }
    qint64 parentId() const { return d->parentId; }
    BookmarkItem *parent() const { return d->parent; }
    const QString &color() const { return d->color; }
    const QString &name() const { return d->name; }
    /// The name; a newsgroup's with "a.b." for "alt.binaries.".
    const QString &shortName() const;
    /// A newsgroup's name for narrow places; null for a folder.
    const QString &tinyName() const;
    const QList<BookmarkItem *> &children() const { return d->children; }

    void setChildrenLoaded(bool loaded);
    void setExpanded(bool expanded);
    void setId(qint64 id);
    void setParentId(qint64 id);
    void setParent(BookmarkItem *parent);
    void setName(const QString &name);
    /// Takes a name of folderColorNames(), in whatever case, or an empty one; anything else changes nothing.
    void setColor(const QString &name);

    /// Null when this is not a folder or @p row, which is not negative, is past the end.
    BookmarkItem *child(int row) const;
    bool hasChildren() const;
    bool hasChildNamed(const QString &name) const;
    /// Takes @p item over unless it is a child already.
    void appendChild(BookmarkItem *item);
    /// Takes @p items over, none of which is a child yet: appending one by one would search the list each
    /// time.
    void appendNewChildren(const QList<BookmarkItem *> &items);
    /// Takes @p item over if @p row is within the list or just behind it.
    void insertChild(int row, BookmarkItem *item);
    /// Gives every occurrence of @p item back to the caller.
    void removeChild(BookmarkItem *item);
    /// Deletes @p count children from @p row on, or as many as there are.
    void removeChildren(int row, int count);

private:
    BookmarkItemData *change();

    QSharedDataPointer<BookmarkItemData> d;
};
