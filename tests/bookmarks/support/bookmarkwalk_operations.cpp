// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkwalk.h"

#include "bookmarks/bookmarkitem.h"
#include "plugin/constants.h"

#include <QDataStream>
#include <QMimeData>

#include <sqlite3.h>

#include <array>

BookmarkWalk::Operation BookmarkWalk::nextOperation()
{
    struct Choice {
        int weight;
        const char *name;
        Operation operation;
    };
    static const std::array<Choice, 16> choices{{{8, "add folder", &BookmarkWalk::addFolder},
                                                 {10, "add bookmarks", &BookmarkWalk::addBookmarks},
                                                 {6, "rename", &BookmarkWalk::rename},
                                                 {4, "colour", &BookmarkWalk::setColor},
                                                 {5, "expand", &BookmarkWalk::setExpanded},
                                                 {8, "open", &BookmarkWalk::open},
                                                 {11, "remove", &BookmarkWalk::remove},
                                                 {7, "drop newsgroups", &BookmarkWalk::dropNewsgroups},
                                                 {5, "start a drag", &BookmarkWalk::startDrag},
                                                 {18, "drop bookmarks", &BookmarkWalk::dropBookmarks},
                                                 {7, "forget sources", &BookmarkWalk::forgetSources},
                                                 {2, "remove rows", &BookmarkWalk::removeAnyRows},
                                                 {2, "import", &BookmarkWalk::importFolders},
                                                 {3, "load", &BookmarkWalk::load},
                                                 {3, "strange rows", &BookmarkWalk::addStrangeRows},
                                                 {1, "reopen", &BookmarkWalk::reopen}}};
    Choice next{0, "clear", &BookmarkWalk::clear};
    if (items().size() > 3 * m_limit) {
        next = {0, "load", &BookmarkWalk::load};
    } else if (numberIn("SELECT count(*) FROM bookmarks") > m_limit) {
        if (!chance(20))
            next = {0, "remove", &BookmarkWalk::remove};
    } else {
        int left = upTo(99);
        for (const Choice &choice : choices) {
            next = choice;
            left -= choice.weight;
            if (left < 0)
                break;
        }
    }
    m_done = QString::fromLatin1(next.name);
    return next.operation;
}

QString BookmarkWalk::name()
{
    static const QStringList names{QStringLiteral("alt.binaries.a"),  QStringLiteral("alt.binaries.b"),
                                   QStringLiteral("comp.lang.c++"),   QStringLiteral("misc.test"),
                                   QStringLiteral("de.alt.ümlaut"),   QStringLiteral("x"),
                                   QStringLiteral("it's \"quoted\""), QStringLiteral("")};
    // A newsgroup without a name is read back as a folder.
    return chance(1) ? QString() : names.at(upTo(names.size() - 1));
}

QStringList BookmarkWalk::names()
{
    QStringList several;
    for (int count = 1 + upTo(3); count > 0; --count)
        several.append(name());
    return several;
}

void BookmarkWalk::addFolder()
{
    OracleItem *parent = chance(15) ? anyItem() : anyTarget();
    if (wouldLoop({}, parent))
        return;
    const QModelIndex index = indexOf(parent);
    both([&] { m_store.model().addFolder(index); }, [&] { m_oracle.addFolder(parent); });
}

// Added at the top the rows that are announced are others than those that are inserted, which a tester takes
// ill: it keeps watch again afterwards.
void BookmarkWalk::addBookmarks()
{
    OracleItem *chosen = chance(20) ? nullptr : anyItem();
    if (wouldLoop({}, chosen))
        return;
    const QModelIndex index = indexOf(chosen);
    const QStringList newsgroups = names();
    if (!chosen)
        m_store.leave();
    both([&] { m_store.model().addBookmarks(newsgroups, index); },
         [&] { m_oracle.addBookmarks(newsgroups, chosen); });
    if (!chosen && m_kind == Watched)
        m_store.check();
}

void BookmarkWalk::rename()
{
    OracleItem *item = anyItem();
    if (!item || wouldLoop({item->id}, item->parent))
        return;
    const QModelIndex index = indexOf(item);
    const QString newName = name() + QLatin1Char('!');
    both([&] { m_store.model().setData(index, newName); }, [&] { m_oracle.rename(item, newName); });
}

void BookmarkWalk::setColor()
{
    OracleItem *item = anyItem();
    if (!item || wouldLoop({item->id}, item->parent))
        return;
    static const QStringList colors{QStringLiteral("red"),    QStringLiteral("BLUE"),
                                    QStringLiteral("orange"), QStringLiteral("purple"),
                                    QStringLiteral(""),       QString()};
    const QModelIndex index = indexOf(item);
    const QString color = colors.at(upTo(colors.size() - 1));
    both([&] { m_store.model().setItemColor(index, color); }, [&] { m_oracle.setColor(item, color); });
}

void BookmarkWalk::setExpanded()
{
    OracleItem *item = chance(10) ? anyItem() : anyFolder();
    if (!item || wouldLoop({item->id}, item->parent))
        return;
    const QModelIndex index = indexOf(item);
    const bool expanded = chance(50);
    both([&] { m_store.model().setFolderExpanded(index, expanded); },
         [&] { m_oracle.setExpanded(item, expanded); });
}

void BookmarkWalk::open()
{
    OracleItem *item = anyItem();
    const QModelIndex index = indexOf(item);
    both([&] { m_store.model().rowCount(index); }, [&] { m_oracle.touch(item); });
}

void BookmarkWalk::remove()
{
    OracleItem *item = anyItem();
    if (!item)
        return;
    const QModelIndex index = indexOf(item);
    both([&] { m_store.model().removeBookmark(index); }, [&] { m_oracle.remove(item); });
}

/// Within or just behind the children of @p folder, which has @p index; -1, too, which stands for the latter.
int BookmarkWalk::anyRow(OracleItem *folder, const QModelIndex &index)
{
    m_oracle.touch(folder);
    const int count = m_store.model().rowCount(index);
    return chance(30) ? -1 : upTo(qMin(count, int(m_oracle.siblings(folder).size())));
}

void BookmarkWalk::dropNewsgroups()
{
    OracleItem *folder = anyTarget();
    if (wouldLoop({}, folder))
        return;
    const QModelIndex index = indexOf(folder);
    const int row = anyRow(folder, index);
    const QStringList newsgroups = names();
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (const QString &newsgroup : newsgroups)
        stream << newsgroup;
    QMimeData data;
    data.setData(QStringLiteral("application/x-halvora.plain.newsgroup"), bytes);
    both([&] { m_store.model().dropMimeData(&data, Qt::CopyAction, row, 0, index); },
         [&] { m_oracle.dropNewsgroups(newsgroups, row, folder); });
}

// What is dragged may hold an item twice, or together with its folder, and may be gone when it is dropped.
void BookmarkWalk::startDrag()
{
    constexpr int kept = 4;
    QVector<OracleItem *> chosen;
    for (int count = 1 + upTo(2); count > 0; --count) {
        OracleItem *item = anyItem();
        if (!item)
            return;
        chosen.append(item);
        if (item->parent && chance(15))
            chosen.append(item->parent);
        if (chance(5))
            chosen.append(item);
    }
    Drag drag;
    QModelIndexList indexes;
    for (OracleItem *item : qAsConst(chosen)) {
        indexes.append(indexOf(item));
        m_oracle.touch(item);
        drag.ids.append(item->id);
        if (!drag.sources.contains(item->serial))
            drag.sources.append(item->serial);
    }
    const std::unique_ptr<QMimeData> data(m_store.model().mimeData(indexes));
    drag.bytes = data->data(constants::bookmarkMimeType);
    m_drags.prepend(drag);
    m_drags.resize(qMin(m_drags.size(), kept));
}

void BookmarkWalk::dropBookmarks()
{
    if (m_drags.isEmpty() || chance(70))
        startDrag();
    if (m_drags.isEmpty())
        return;
    const Drag drag = m_drags.at(chance(70) ? 0 : upTo(m_drags.size() - 1));
    OracleItem *source = itemWith(drag.sources.first());
    OracleItem *folder = source && chance(35) ? source->parent : anyTarget();
    if (wouldLoop(drag.ids, folder))
        return;
    const QModelIndex index = indexOf(folder);
    const int row = anyRow(folder, index);
    QMimeData data;
    data.setData(constants::bookmarkMimeType, drag.bytes);
    bool isTaken = false;
    bool isTakenByOracle = false;
    both([&] { isTaken = m_store.model().dropMimeData(&data, Qt::MoveAction, row, 0, index); },
         [&] { isTakenByOracle = m_oracle.dropBookmarks(drag.ids, row, folder); });
    if (isTaken != isTakenByOracle)
        qFatal("A drop was taken by one side only.");
    m_sources += drag.sources;
    if (chance(60))
        forgetSources();
}

void BookmarkWalk::forgetSources()
{
    const QVector<int> sources = m_sources;
    m_sources.clear();
    for (const int serial : sources) {
        if (!chance(5))
            removeSource(serial);
    }
}

void BookmarkWalk::removeSource(int serial)
{
    OracleItem *item = itemWith(serial);
    if (!item)
        return;
    OracleItem *parent = item->parent;
    const QModelIndex index = indexOf(parent);
    const int row = m_oracle.rowOf(item);
    both([&] { m_store.model().removeRows(row, 1, index); }, [&] { m_oracle.removeRows(row, 1, parent); });
}

void BookmarkWalk::removeAnyRows()
{
    OracleItem *item = anyItem();
    if (!item)
        return;
    OracleItem *parent = item->parent;
    const QModelIndex index = indexOf(parent);
    const int row = m_oracle.rowOf(item);
    const int count = 1 + upTo(2); // there may be fewer
    both([&] { m_store.model().removeRows(row, count, index); },
         [&] { m_oracle.removeRows(row, count, parent); });
}

void BookmarkWalk::importFolders()
{
    QVector<OracleImport> folders(upTo(3));
    std::vector<std::unique_ptr<BookmarkItem>> sources;
    QList<BookmarkItem *> given;
    const auto make = [](const OracleImport &from, BookmarkItem *parent) {
        auto item = std::make_unique<BookmarkItem>(
            from.isFolder ? BookmarkKind::Folder : BookmarkKind::Bookmark, parent);
        item->setName(from.name);
        return item;
    };
    for (OracleImport &folder : folders) {
        folder = {!chance(10), name(), QVector<OracleImport>(upTo(4))};
        sources.push_back(make(folder, nullptr));
        given.append(sources.back().get());
        for (OracleImport &child : folder.children) {
            child = {chance(10), name(), {}};
            given.last()->appendChild(make(child, given.last()).release());
        }
    }
    both([&] { m_store.model().importFolders(given); }, [&] { m_oracle.import(folders); });
}

void BookmarkWalk::load()
{
    both([&] { m_store.model().load(); }, [&] { m_oracle.load(); });
}

void BookmarkWalk::clear()
{
    static const std::array<int, 7> limits{{5, 12, 12, 20, 30, 60, 150}};
    const int largest = m_kind == Watched ? 4 : int(limits.size()) - 1;
    m_limit = limits.at(std::size_t(upTo(largest)));
    both([&] { m_store.model().clearBookmarks(); }, [&] { m_oracle.clear(); });
}

void BookmarkWalk::reopen()
{
    if (m_locked)
        return;
    detach();
    m_store.close();
    m_oracle.reopen();
    m_store.open();
    m_oracle.load();
    m_oracle.takeSignals();
    m_signals.clear();
    attach();
}

// Rows that no list leads to: orphans, also of an id that is given out next, and cycles; and rows below
// others, bookmarks included.
void BookmarkWalk::addStrangeRows()
{
    if (m_locked || !sqlite3_get_autocommit(BookmarkStore::handle()) ||
        !sqlite3_get_autocommit(m_oracle.file().handle()))
        return;
    const qint64 next = 1 + qMax(qMax(numberIn("SELECT max(bookmark_id) FROM bookmarks"),
                                      numberIn("SELECT seq FROM sqlite_sequence")),
                                 qint64(0));
    const OracleItem *item = anyItem();
    const qint64 known = item && item->id > 0 ? item->id : next;
    const qint64 parents[] = {1'000'000, next + 2 + upTo(2), next, next + 1, known};
    const QString row = QStringLiteral("INSERT INTO bookmarks VALUES (%1, %2, 'strange', %3, NULL, 0, %4);");
    QString rows;
    for (int i = 0; i < 2; ++i) {
        // The second of two rows in each other closes the cycle.
        const qint64 parent = parents[upTo(4)];
        const bool isFolder = parent != known && chance(50);
        rows += row.arg(next + i)
                    .arg(i == 1 && chance(30) ? next : parent)
                    .arg(isFolder ? QStringLiteral("NULL") : QStringLiteral("'strange.group'"))
                    .arg(upTo(3));
    }
    BookmarkStore::execute(m_store.path(), rows);
    BookmarkStore::execute(m_folder.filePath(QStringLiteral("oracle.sqlite")), rows);
    load();
}
