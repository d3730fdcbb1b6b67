// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/bookmarkitem.h"

#include <halvora/stringformat.h>

QStringList folderColorNames()
{
    return {QStringLiteral("orange"), QStringLiteral("yellow"), QStringLiteral("red"),
            QStringLiteral("gray"),   QStringLiteral("green"),  QStringLiteral("brown"),
            QStringLiteral("cyan"),   QStringLiteral("blue")};
}

BookmarkItem::BookmarkItem()
    : d(new BookmarkItemData)
{
}

BookmarkItem::BookmarkItem(BookmarkKind kind, BookmarkItem *parent)
    : d(new BookmarkItemData)
{
    d->saved = false;
    d->kind = kind;
    d->parent = parent;
}

// Each item is emptied before it is deleted, so that a deep tree does not need a deep stack.
BookmarkItem::~BookmarkItem()
{
    QList<BookmarkItem *> doomed;
    doomed.swap(d->children);
    while (!doomed.isEmpty()) {
        BookmarkItem *item = doomed.takeLast();
        doomed.append(item->children());
        item->d->children.clear();
        delete item;
    }
}

BookmarkItemData *BookmarkItem::change()
{
    BookmarkItemData *data = d.data();
    data->saved = false;
    return data;
}

const QString &BookmarkItem::shortName() const
{
    if (d->shortName.isNull()) {
        d->shortName = d->name;
        if (!isFolder())
            d->shortName.replace(QLatin1String("alt.binaries."), QLatin1String("a.b."));
    }
    return d->shortName;
}

const QString &BookmarkItem::tinyName() const
{
    if (d->tinyName.isNull() && !isFolder() && !d->name.isNull())
        d->tinyName = StringFormat::tinyNewsgroupName(d->name);
    return d->tinyName;
}

void BookmarkItem::setChildrenLoaded(bool loaded)
{
    change()->childrenLoaded = loaded;
}

void BookmarkItem::setExpanded(bool expanded)
{
    change()->expanded = expanded;
}

void BookmarkItem::setId(qint64 id)
{
    change()->id = id;
}

void BookmarkItem::setParentId(qint64 id)
{
    change()->parentId = id;
}

void BookmarkItem::setParent(BookmarkItem *parent)
{
    change()->parent = parent;
}

void BookmarkItem::setName(const QString &name)
{
    BookmarkItemData *data = change();
    data->name = name;
    data->shortName.clear();
    data->tinyName.clear();
}

void BookmarkItem::setColor(const QString &name)
{
    const QString color = name.toLower();
    if (color.isEmpty() || folderColorNames().contains(color))
        change()->color = color;
}

BookmarkItem *BookmarkItem::child(int row) const
{
    return isFolder() && row < d->children.size() ? d->children.at(row) : nullptr;
}

bool BookmarkItem::hasChildren() const
{
    return isFolder() && !d->children.isEmpty();
}

bool BookmarkItem::hasChildNamed(const QString &name) const
{
    if (!isFolder())
        return false;
    for (const BookmarkItem *item : d->children) {
        if (item->name() == name)
            return true;
    }
    return false;
}

void BookmarkItem::appendChild(BookmarkItem *item)
{
    if (!children().contains(item))
        change()->children.append(item);
}

void BookmarkItem::appendNewChildren(const QList<BookmarkItem *> &items)
{
    change()->children.append(items);
}

void BookmarkItem::insertChild(int row, BookmarkItem *item)
{
    if (row >= 0 && row <= children().size())
        change()->children.insert(row, item);
}

void BookmarkItem::removeChild(BookmarkItem *item)
{
    change()->children.removeAll(item);
}

void BookmarkItem::removeChildren(int row, int count)
{
    if (row < 0 || row >= children().size())
        return;
    BookmarkItemData *data = change();
    for (; count > 0 && row < data->children.size(); --count)
        delete data->children.takeAt(row);
}
