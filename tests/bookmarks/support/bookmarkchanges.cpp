// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkchanges.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarkstore.h"

#include <QMimeData>

#include <memory>

namespace {

constexpr int fewest = 20;
constexpr int most = 80;

bool isInside(QModelIndex index, const QModelIndex &folder)
{
    while (index.isValid() && index != folder)
        index = index.parent();
    return index.isValid();
}

} // namespace

BookmarkChanges::BookmarkChanges(OpenBookmarkManager &model, quint32 seed)
    : m_model(model)
    , m_random(seed)
{
}

QByteArray BookmarkChanges::next()
{
    const QVector<QModelIndex> all = indexes();
    if (all.size() < fewest)
        return add(all);
    const QModelIndex index = all.at(int(below(quint32(all.size()))));
    if (all.size() > most)
        return remove(index);
    switch (below(8)) {
    case 0:
        return remove(index);
    case 1:
        return import();
    case 2:
    case 3:
        return add(all);
    case 4:
    case 5:
        return change(index);
    default:
        return move(index, all);
    }
}

// A long one takes several pages, so that there is much of a transaction to be cut off in.
QString BookmarkChanges::newName()
{
    constexpr int longest = 20'000;
    const QString name = QStringLiteral("name %1 ").arg(m_random());
    return below(3) == 0 ? name.leftJustified(int(below(longest)), QLatin1Char('x')) : name;
}

QVector<QModelIndex> BookmarkChanges::indexes() const
{
    QVector<QModelIndex> found{QModelIndex()};
    for (int i = 0; i < found.size(); ++i) {
        const QModelIndex parent = found.at(i);
        for (int row = 0; row < m_model.rowCount(parent); ++row)
            found.append(m_model.index(row, 0, parent));
    }
    found.removeFirst();
    return found;
}

QModelIndex BookmarkChanges::anyFolder(const QVector<QModelIndex> &indexes)
{
    QVector<QModelIndex> folders{QModelIndex()};
    for (const QModelIndex &index : indexes) {
        if (m_model.itemFromIndex(index)->isFolder())
            folders.append(index);
    }
    return folders.at(int(below(quint32(folders.size()))));
}

QByteArray BookmarkChanges::add(const QVector<QModelIndex> &indexes)
{
    const QModelIndex folder = anyFolder(indexes);
    if (below(3) == 0) {
        m_model.addFolder(folder);
        return "add folder";
    }
    m_model.addBookmarks({newName()}, folder);
    return "add bookmark";
}

QByteArray BookmarkChanges::import()
{
    BookmarkItem folder(BookmarkKind::Folder, nullptr);
    folder.setName(newName());
    for (quint32 left = below(20); left > 0; --left) {
        auto *bookmark = new BookmarkItem(BookmarkKind::Bookmark, &folder);
        bookmark->setName(newName());
        folder.appendChild(bookmark);
    }
    m_model.importFolders({&folder});
    return "import";
}

QByteArray BookmarkChanges::remove(const QModelIndex &index)
{
    m_model.removeBookmark(index);
    return "remove";
}

QByteArray BookmarkChanges::change(const QModelIndex &index)
{
    switch (below(3)) {
    case 0:
        m_model.setData(index, newName());
        return "rename";
    case 1:
        m_model.setItemColor(index, folderColorNames().at(int(below(8))));
        return "colour";
    default:
        m_model.setFolderExpanded(index, below(2) == 0);
        return "expand";
    }
}

// As a view does: the drop inserts the rows anew, and the old ones are then forgotten wherever they are.
QByteArray BookmarkChanges::move(const QModelIndex &index, const QVector<QModelIndex> &indexes)
{
    const QModelIndex folder = anyFolder(indexes);
    if (isInside(folder, index))
        return "move nothing";
    const QPersistentModelIndex old(index);
    const std::unique_ptr<QMimeData> data(m_model.mimeData({index}));
    const int row = int(below(quint32(m_model.rowCount(folder)) + 1));
    m_model.dropMimeData(data.get(), Qt::MoveAction, row, 0, folder);
    m_model.removeRows(old.row(), 1, old.parent());
    return "move";
}
