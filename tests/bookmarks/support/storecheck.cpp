// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "storecheck.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarkstore.h"

#include <QMimeData>
#include <QTest>

#include <sqlite3.h>

namespace {

constexpr int deepest = 6;
constexpr int mostLines = 5000;

QStringList warnings;
QtMessageHandler handlerBefore = nullptr;

void collect(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (message.contains(QLatin1String("still in use")) || message.contains(QLatin1String("duplicate")))
        warnings.append(message);
    handlerBefore(type, context, message);
}

void addLines(BookmarkStore &store, const QModelIndex &parent, int depth, QStringList &lines)
{
    const CVBookmarkManager &model = store.model();
    for (int row = 0; row < model.rowCount(parent) && lines.size() < mostLines; ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        const BookmarkItem *item = model.itemFromIndex(index);
        const QString name =
            item->isFolder() ? QLatin1Char('[') + item->name() + QLatin1Char(']') : item->name();
        const QString color = item->color().isEmpty() ? QString() : QLatin1Char(' ') + item->color();
        lines.append(QString(depth, QLatin1Char(' ')) + name + color +
                     QLatin1String(item->isExpanded() ? " +" : ""));
        // What a view asks for; nothing is expected of it but an answer.
        for (int role = Qt::DisplayRole; role <= Qt::SizeHintRole; ++role)
            index.data(role);
        if (depth < deepest)
            addLines(store, index, depth + 1, lines);
    }
}

void move(BookmarkStore &store, const QModelIndex &index, const QModelIndex &folder)
{
    const QPersistentModelIndex old(index);
    const std::unique_ptr<QMimeData> data(store.model().mimeData({index}));
    if (store.model().dropMimeData(data.get(), Qt::MoveAction, -1, -1, folder))
        store.model().removeRows(old.row(), 1, old.parent());
}

void use(BookmarkStore &store)
{
    const int before = store.model().rowCount();
    const QPersistentModelIndex folder = store.addFolder(QStringLiteral("Own"));
    QCOMPARE(folder.row(), before);
    QCOMPARE(folder.data(Qt::EditRole).toString(), QStringLiteral("Own"));
    store.model().addBookmarks({QStringLiteral("alt.own"), QStringLiteral("alt.other")}, folder);
    QCOMPARE(store.names(folder), (QStringList{QStringLiteral("alt.own"), QStringLiteral("alt.other")}));
    store.model().setItemColor(folder, QStringLiteral("red"));
    store.model().setFolderExpanded(folder, true);
    if (before > 1) {
        store.model().setItemColor(store.at({0}), QStringLiteral("green"));
        move(store, store.at({before - 1}), folder);
        store.model().removeBookmark(store.at({0}));
    }
    store.model().removeBookmark(store.model().index(0, 0, folder));
}

} // namespace

ConnectionWarnings::ConnectionWarnings()
{
    warnings.clear();
    handlerBefore = qInstallMessageHandler(collect);
}

ConnectionWarnings::~ConnectionWarnings()
{
    qInstallMessageHandler(handlerBefore);
}

QString ConnectionWarnings::text() const
{
    return warnings.join(QLatin1Char('\n'));
}

QStringList storecheck::shown(BookmarkStore &store)
{
    QStringList lines;
    addLines(store, {}, 0, lines);
    return lines;
}

QString storecheck::value(const QString &path, const char *statement)
{
    sqlite3 *handle = nullptr;
    sqlite3_open(path.toUtf8().constData(), &handle);
    sqlite3_stmt *prepared = nullptr;
    QString answer;
    if (sqlite3_prepare_v2(handle, statement, -1, &prepared, nullptr) == SQLITE_OK &&
        sqlite3_step(prepared) == SQLITE_ROW)
        answer = QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(prepared, 0)));
    else
        answer = QString::fromUtf8(sqlite3_errmsg(handle));
    sqlite3_finalize(prepared);
    sqlite3_close(handle);
    return answer;
}

bool storecheck::isSound(const QString &path)
{
    constexpr char insertion[] =
        "EXPLAIN INSERT INTO bookmarks (parent_id, bookmark_name, bookmark_newsgroup, bookmark_color, "
        "bookmark_expanded, bookmark_order) VALUES (1, 2, 3, 4, 5, 6)";
    return value(path, "PRAGMA integrity_check") == QLatin1String("ok") &&
           value(path, insertion) == QLatin1String("0") &&
           value(path, "SELECT count(*) = count(DISTINCT bookmark_id) AND ifnull(min(bookmark_id), 1) > 0 "
                       "FROM bookmarks") == QLatin1String("1");
}

void storecheck::useAndReopen(BookmarkStore &store)
{
    store.open();
    store.check();
    shown(store);
    use(store);
    if (QTest::currentTestFailed())
        return;
    const QStringList before = shown(store);
    store.close();
    const bool wasSound = isSound(store.path());
    store.open();
    store.check();
    const QStringList after = shown(store);
    if (wasSound)
        QCOMPARE(after, before);
}
