// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkoracle.h"

#include <sqlite3.h>

namespace {

QString knownColor(const QString &name, const QString &otherwise)
{
    static const QStringList known{
        QStringLiteral("orange"), QStringLiteral("yellow"), QStringLiteral("red"),  QStringLiteral("gray"),
        QStringLiteral("green"),  QStringLiteral("brown"),  QStringLiteral("cyan"), QStringLiteral("blue")};
    const QString color = name.toLower();
    return color.isEmpty() || known.contains(color) ? color : otherwise;
}

OracleList::iterator at(OracleList &list, int row)
{
    return list.begin() + row;
}

} // namespace

BookmarkOracle::BookmarkOracle(const QString &path, bool looks)
    : m_path(path)
    , m_looks(looks)
{
    reopen();
    file().run("CREATE TABLE bookmarks (bookmark_id INTEGER PRIMARY KEY AUTOINCREMENT, parent_id INTEGER, "
               "bookmark_name TEXT, bookmark_newsgroup TEXT, bookmark_color TEXT, bookmark_expanded BOOLEAN, "
               "bookmark_order INTEGER)");
}

BookmarkOracle::~BookmarkOracle() = default;

void BookmarkOracle::reopen()
{
    if (m_file && !sqlite3_get_autocommit(file().handle()))
        file().run("COMMIT");
    m_file.reset();
    m_file = std::make_unique<SqliteFile>(m_path);
}

int BookmarkOracle::rowOf(const OracleItem *item)
{
    const OracleList &list = siblings(item->parent);
    int row = 0;
    while (list.at(std::size_t(row)).get() != item)
        ++row;
    return row;
}

std::unique_ptr<OracleItem> BookmarkOracle::make(bool isFolder, const QString &name, OracleItem *parent)
{
    auto item = std::make_unique<OracleItem>();
    item->serial = ++m_lastSerial;
    item->isFolder = isFolder;
    item->name = name;
    item->parent = parent;
    return item;
}

OracleList BookmarkOracle::select(const char *statement, std::initializer_list<SqlValue> values,
                                  OracleItem *parent)
{
    OracleList items;
    file().run(statement, values, [&](sqlite3_stmt *row) {
        enum { Id, ParentId, Name, Newsgroup, Color, Expanded };
        const bool isFolder = SqlStatement::isNull(row, Newsgroup);
        auto item = make(isFolder, SqlStatement::text(row, isFolder ? Name : Newsgroup), parent);
        item->id = SqlStatement::number(row, Id);
        item->parentId = SqlStatement::isNull(row, ParentId) ? -1 : SqlStatement::number(row, ParentId);
        item->color = knownColor(SqlStatement::text(row, Color), QString());
        item->isExpanded = isFolder && SqlStatement::number(row, Expanded) != 0;
        items.push_back(std::move(item));
    });
    return items;
}

void BookmarkOracle::touch(OracleItem *item)
{
    if (!item || item->isLoaded || item->id < 1)
        return;
    OracleList children =
        select("SELECT * FROM bookmarks WHERE parent_id=? ORDER BY bookmark_order ASC", {item->id}, item);
    for (std::unique_ptr<OracleItem> &child : children)
        item->children.push_back(std::move(child));
    item->isLoaded = true;
}

void BookmarkOracle::look()
{
    lookBelow(nullptr);
}

void BookmarkOracle::lookBelow(OracleItem *parent)
{
    touch(parent);
    if (parent && !parent->isFolder)
        return;
    for (const std::unique_ptr<OracleItem> &item : siblings(parent))
        lookBelow(item.get());
}

void BookmarkOracle::lookIfWatched()
{
    if (m_looks)
        look();
}

void BookmarkOracle::signal(const char *what, const OracleItem *parent, int first, int last)
{
    m_signals.append(QStringLiteral("%1 %2: %3-%4")
                         .arg(QLatin1String(what))
                         .arg(parent ? parent->id : -1)
                         .arg(first)
                         .arg(last));
}

void BookmarkOracle::load()
{
    file().run("BEGIN");
    OracleList items =
        select("SELECT * FROM bookmarks WHERE parent_id IS NULL ORDER BY bookmark_order ASC", {}, nullptr);
    m_newsgroups.clear();
    file().run("SELECT bookmark_newsgroup FROM bookmarks", {},
               [this](sqlite3_stmt *row) { m_newsgroups.append(SqlStatement::text(row, 0)); });
    m_signals.append(QStringLiteral("newsgroups changed"));
    file().run("COMMIT");
    m_signals += {QStringLiteral("resetting"), QStringLiteral("reset")};
    m_topLevel = std::move(items);
    lookIfWatched();
}

void BookmarkOracle::clear()
{
    file().run("BEGIN");
    file().run("DELETE FROM bookmarks");
    file().run("COMMIT");
    m_signals += {QStringLiteral("resetting"), QStringLiteral("reset")};
    m_topLevel.clear();
}

void BookmarkOracle::insert(std::unique_ptr<OracleItem> item, int row)
{
    OracleList &list = siblings(item->parent);
    list.insert(at(list, row), std::move(item));
}

void BookmarkOracle::save(OracleItem *item)
{
    file().run("BEGIN");
    write(item);
    file().run("COMMIT");
}

void BookmarkOracle::write(OracleItem *item)
{
    const SqlValue parentId = item->parent ? SqlValue(item->parent->id) : SqlValue();
    const SqlValue name = item->isFolder ? SqlValue(item->name) : SqlValue();
    const SqlValue newsgroup = item->isFolder ? SqlValue() : SqlValue(item->name);
    const qint64 expanded = item->isExpanded ? 1 : 0;
    if (item->id > 0) {
        file().run(
            "UPDATE bookmarks SET parent_id=?, bookmark_name=?, bookmark_newsgroup=?, bookmark_color=?, "
            "bookmark_expanded=? WHERE bookmark_id=?",
            {parentId, name, newsgroup, item->color, expanded, item->id});
    } else {
        const bool isInserted =
            file().run("INSERT INTO bookmarks (parent_id, bookmark_name, bookmark_newsgroup, bookmark_color, "
                       "bookmark_expanded, bookmark_order) VALUES (?, ?, ?, ?, ?, ?)",
                       {parentId, name, newsgroup, item->color, expanded, qint64(-1)});
        item->id = isInserted ? sqlite3_last_insert_rowid(file().handle()) : 0;
    }
    renumber(item->parent);
}

void BookmarkOracle::renumber(OracleItem *parent)
{
    SqlStatement statement(file().handle(), "UPDATE bookmarks SET bookmark_order=? WHERE bookmark_id=?");
    qint64 place = 0;
    for (const std::unique_ptr<OracleItem> &sibling : siblings(parent))
        statement.run({place++, sibling->id});
}

void BookmarkOracle::deleteRows(OracleItem *item)
{
    for (const std::unique_ptr<OracleItem> &child : item->children)
        deleteRows(child.get());
    file().run("DELETE FROM bookmarks WHERE bookmark_id=?", {item->id});
    if (!item->isFolder && m_newsgroups.removeOne(item->name))
        m_signals.append(QStringLiteral("removed ") + item->name);
}

void BookmarkOracle::addFolder(OracleItem *parent)
{
    touch(parent);
    if (parent && !parent->isFolder)
        return;
    lookIfWatched();
    auto item = make(true, QStringLiteral("New Folder"), parent);
    OracleItem *folder = item.get();
    const int row = parent ? 0 : int(m_topLevel.size());
    signal("inserting", parent, row, row);
    insert(std::move(item), row);
    save(folder);
    signal("inserted", parent, row, row);
    lookIfWatched();
}

void BookmarkOracle::addBookmarks(const QStringList &names, OracleItem *chosen)
{
    touch(chosen);
    OracleItem *folder = chosen;
    int row = 0;
    if (chosen && !chosen->isFolder) {
        folder = chosen->parent;
        row = rowOf(chosen) + 1;
        if (!folder)
            return;
    }
    touch(folder);
    lookIfWatched();
    const int first = row;
    signal("inserting", folder, first, first + names.size() - 1);
    for (const QString &name : names) {
        auto item = make(false, name, folder);
        OracleItem *bookmark = item.get();
        insert(std::move(item), folder ? row++ : int(m_topLevel.size()));
        save(bookmark);
        m_newsgroups.append(name);
        m_signals.append(QStringLiteral("added ") + name);
    }
    signal("inserted", folder, first, first + names.size() - 1);
    lookIfWatched();
}

void BookmarkOracle::rename(OracleItem *item, const QString &name)
{
    touch(item);
    item->name = name;
    save(item);
    signal("changed", item->parent, rowOf(item), rowOf(item));
    lookIfWatched();
}

void BookmarkOracle::setColor(OracleItem *item, const QString &name)
{
    touch(item);
    item->color = knownColor(name, item->color);
    save(item);
    signal("changed", item->parent, rowOf(item), rowOf(item));
    lookIfWatched();
}

void BookmarkOracle::setExpanded(OracleItem *item, bool expanded)
{
    touch(item);
    if (!item->isFolder)
        return;
    item->isExpanded = expanded;
    save(item);
}

void BookmarkOracle::remove(OracleItem *item)
{
    touch(item);
    lookIfWatched();
    OracleItem *parent = item->parent;
    const int row = rowOf(item);
    signal("removing", parent, row, row);
    file().run("BEGIN");
    OracleList &list = siblings(parent);
    const auto place = at(list, row);
    const std::unique_ptr<OracleItem> removed = std::move(*place);
    list.erase(place);
    deleteRows(removed.get());
    file().run("COMMIT");
    signal("removed", parent, row, row);
    lookIfWatched();
}

void BookmarkOracle::dropNewsgroups(const QStringList &names, int row, OracleItem *folder)
{
    touch(folder);
    if (row == -1)
        row = int(siblings(folder).size());
    lookIfWatched();
    const int first = row;
    signal("inserting", folder, first, first + names.size() - 1);
    for (const QString &name : names) {
        auto item = make(false, name, folder);
        OracleItem *bookmark = item.get();
        insert(std::move(item), row++);
        save(bookmark);
        m_newsgroups.append(name);
        m_signals.append(QStringLiteral("added ") + name);
    }
    signal("inserted", folder, first, first + names.size() - 1);
    lookIfWatched();
}

bool BookmarkOracle::dropBookmarks(const QVector<qint64> &ids, int row, OracleItem *folder)
{
    touch(folder);
    if (row == -1)
        row = int(siblings(folder).size());
    OracleList fresh;
    for (const qint64 id : ids) {
        OracleList found = select("SELECT * FROM bookmarks WHERE bookmark_id=?", {id}, nullptr);
        for (std::unique_ptr<OracleItem> &item : found)
            fresh.push_back(std::move(item));
    }
    if (fresh.empty())
        return false;
    lookIfWatched();
    const int first = row;
    const int last = first + int(fresh.size()) - 1;
    signal("inserting", folder, first, last);
    for (std::unique_ptr<OracleItem> &item : fresh) {
        OracleItem *moved = item.get();
        moved->parent = folder;
        insert(std::move(item), row++);
        save(moved);
        for (OracleItem *parent : {folder, static_cast<OracleItem *>(nullptr)}) {
            touch(parent);
            file().run("BEGIN");
            renumber(parent);
            file().run("COMMIT");
        }
    }
    signal("inserted", folder, first, last);
    lookIfWatched();
    return true;
}

void BookmarkOracle::removeRows(int row, int count, OracleItem *parent)
{
    touch(parent);
    lookIfWatched();
    OracleList &list = siblings(parent);
    const int end = qMin(row + count, int(list.size()));
    signal("removing", parent, row, end - 1);
    list.erase(at(list, row), at(list, end));
    signal("removed", parent, row, end - 1);
    lookIfWatched();
}

void BookmarkOracle::import(const QVector<OracleImport> &folders)
{
    if (folders.isEmpty())
        return;
    file().run("BEGIN");
    m_signals.append(QStringLiteral("resetting"));
    lookIfWatched();
    QStringList newsgroups;
    for (const OracleImport &source : folders) {
        if (!source.isFolder)
            continue;
        m_topLevel.push_back(make(true, source.name, nullptr));
        OracleItem *folder = m_topLevel.back().get();
        folder->isLoaded = true;
        write(folder);
        for (const OracleImport &child : source.children) {
            if (child.isFolder)
                continue;
            folder->children.push_back(make(false, child.name, folder));
            folder->children.back()->isLoaded = true;
            write(folder->children.back().get());
            newsgroups.append(child.name);
        }
    }
    file().run("COMMIT");
    m_newsgroups = newsgroups;
    m_signals += {QStringLiteral("newsgroups changed"), QStringLiteral("reset")};
    lookIfWatched();
}
