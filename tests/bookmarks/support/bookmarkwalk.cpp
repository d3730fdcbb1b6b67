// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkwalk.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/cvbookmarkprovider.h"

#include <QSet>

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <utility>

namespace {

void lookAt(const QAbstractItemModel &model, const QModelIndex &parent = QModelIndex())
{
    for (int row = 0; row < model.rowCount(parent); ++row)
        lookAt(model, model.index(row, 0, parent));
}

QString describe(bool isFolder, qint64 id, qint64 parentId, const QString &name, const QString &color,
                 bool isExpanded, bool isLoaded)
{
    return QStringLiteral("%1 %2 below %3 '%4' '%5' %6%7")
        .arg(isFolder ? QStringLiteral("folder") : QStringLiteral("bookmark"))
        .arg(id)
        .arg(parentId)
        .arg(name, color)
        .arg(int(isExpanded))
        .arg(int(isLoaded));
}

QString difference(const QList<BookmarkItem *> &items, const OracleList &expected)
{
    if (items.size() != int(expected.size()))
        return QStringLiteral("%1 items instead of %2").arg(items.size()).arg(expected.size());
    for (int row = 0; row < items.size(); ++row) {
        const BookmarkItem &item = *items.at(row);
        const OracleItem &other = *expected.at(std::size_t(row));
        const bool isSame = item.isFolder() == other.isFolder && item.id() == other.id &&
                            item.parentId() == other.parentId && item.name() == other.name &&
                            item.color() == other.color && item.isExpanded() == other.isExpanded &&
                            item.childrenLoaded() == other.isLoaded;
        const QString below = isSame ? difference(item.children(), other.children)
                                     : describe(item.isFolder(), item.id(), item.parentId(), item.name(),
                                                item.color(), item.isExpanded(), item.childrenLoaded()) +
                                           QStringLiteral(" instead of ") +
                                           describe(other.isFolder, other.id, other.parentId, other.name,
                                                    other.color, other.isExpanded, other.isLoaded);
        if (!below.isEmpty())
            return QStringLiteral("at %1: %2").arg(row).arg(below);
    }
    return {};
}

/// The lines that are in one of the texts only.
QString differingLines(const QByteArray &text, const QByteArray &expected)
{
    const QByteArrayList lines = text.split('\n');
    const QByteArrayList otherLines = expected.split('\n');
    QByteArray differing;
    for (const QByteArray &line : lines)
        differing += otherLines.contains(line) ? QByteArray() : line + '\n';
    differing += "instead of\n";
    for (const QByteArray &line : otherLines)
        differing += lines.contains(line) ? QByteArray() : line + '\n';
    return QString::fromUtf8(differing);
}

QString difference(const QByteArrayList &commits, const QByteArrayList &expected)
{
    for (int i = 0; i < qMin(commits.size(), expected.size()); ++i) {
        if (commits.at(i) != expected.at(i))
            return QStringLiteral("commit %1 left %2")
                .arg(i)
                .arg(differingLines(commits.at(i), expected.at(i)));
    }
    if (commits.size() != expected.size())
        return QStringLiteral("%1 commits instead of %2").arg(commits.size()).arg(expected.size());
    return {};
}

} // namespace

BookmarkWalk::BookmarkWalk(Kind kind, quint32 seed)
    : m_kind(kind)
    , m_random(seed)
    , m_oracle(m_folder.filePath(QStringLiteral("oracle.sqlite")), kind == Watched)
{
    attach();
}

BookmarkWalk::~BookmarkWalk()
{
    detach();
}

void BookmarkWalk::attach()
{
    // There is no second process here that a lock would have to be waited for.
    sqlite3_busy_timeout(BookmarkStore::handle(), 0);
    if (m_kind == Failing) {
        m_modelFaults = std::make_unique<StatementFaults>(BookmarkStore::handle());
        m_oracleFaults = std::make_unique<StatementFaults>(m_oracle.file().handle());
    }
    m_modelTrace = std::make_unique<CommitTrace>(BookmarkStore::handle(), m_store.path());
    m_oracleTrace = std::make_unique<CommitTrace>(m_oracle.file().handle(),
                                                  m_folder.filePath(QStringLiteral("oracle.sqlite")));
    m_watcher = std::make_unique<QObject>();
    noteSignals();
    if (m_kind != Watched)
        return;
    CVBookmarkManager *model = &m_store.model();
    const auto look = [model] { lookAt(*model); };
    QObject::connect(model, &QAbstractItemModel::rowsAboutToBeInserted, m_watcher.get(), look);
    QObject::connect(model, &QAbstractItemModel::rowsInserted, m_watcher.get(), look);
    QObject::connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, m_watcher.get(), look);
    QObject::connect(model, &QAbstractItemModel::rowsRemoved, m_watcher.get(), look);
    QObject::connect(model, &QAbstractItemModel::modelAboutToBeReset, m_watcher.get(), look);
    QObject::connect(model, &QAbstractItemModel::modelReset, m_watcher.get(), look);
    QObject::connect(model, &QAbstractItemModel::dataChanged, m_watcher.get(), look);
    m_store.check();
}

// Nothing is asked of the model here, as that would read children.
void BookmarkWalk::noteSignals()
{
    const CVBookmarkManager *model = &m_store.model();
    const auto add = [this](const char *what, const void *parent, int first, int last) {
        m_signals.append(QStringLiteral("%1 %2: %3-%4")
                             .arg(QLatin1String(what))
                             .arg(parent ? static_cast<const BookmarkItem *>(parent)->id() : -1)
                             .arg(first)
                             .arg(last));
    };
    const auto rows = [add](const char *what) {
        return [add, what](const QModelIndex &parent, int first, int last) {
            add(what, parent.internalPointer(), first, last);
        };
    };
    const auto note = [this](const char *what) {
        return [this, what] { m_signals.append(QLatin1String(what)); };
    };
    const auto noteName = [this](const char *what) {
        return [this, what](const QString &name) { m_signals.append(QLatin1String(what) + name); };
    };
    QObject *watcher = m_watcher.get();
    QObject::connect(model, &QAbstractItemModel::rowsAboutToBeInserted, watcher, rows("inserting"));
    QObject::connect(model, &QAbstractItemModel::rowsInserted, watcher, rows("inserted"));
    QObject::connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, watcher, rows("removing"));
    QObject::connect(model, &QAbstractItemModel::rowsRemoved, watcher, rows("removed"));
    QObject::connect(model, &QAbstractItemModel::modelAboutToBeReset, watcher, note("resetting"));
    QObject::connect(model, &QAbstractItemModel::modelReset, watcher, note("reset"));
    QObject::connect(model, &QAbstractItemModel::dataChanged, watcher,
                     [add](const QModelIndex &first, const QModelIndex &last) {
                         const auto *item = static_cast<const BookmarkItem *>(first.internalPointer());
                         add("changed", item->parent(), first.row(), last.row());
                     });
    const CVBookmarkProvider *provider = model->provider();
    QObject::connect(provider, &BookmarkProvider::bookmarkAdded, watcher, noteName("added "));
    QObject::connect(provider, &BookmarkProvider::bookmarkRemoved, watcher, noteName("removed "));
    QObject::connect(provider, &BookmarkProvider::bookmarksChanged, watcher, note("newsgroups changed"));
}

void BookmarkWalk::detach()
{
    m_watcher.reset();
    m_store.leave();
    m_modelTrace.reset();
    m_oracleTrace.reset();
    m_modelFaults.reset();
    m_oracleFaults.reset();
}

QString BookmarkWalk::step()
{
    m_done.clear();
    (this->*nextOperation())();
    constexpr int kept = 8;
    m_history.append(m_done);
    while (m_history.size() > kept)
        m_history.removeFirst();
    if (m_locked && chance(40)) {
        m_modelTrace->unlock();
        m_oracleTrace->unlock();
        m_locked = false;
    }
    if (m_kind == Watched) {
        lookAt(m_store.model());
        m_oracle.look();
    }
    const QString found = difference();
    return found.isEmpty() ? found : m_history.join(QStringLiteral(", ")) + QStringLiteral(": ") + found;
}

QString BookmarkWalk::difference()
{
    const QByteArrayList commits = m_modelTrace->take();
    m_commitCount += commits.size();
    const QString inFile = ::difference(commits, m_oracleTrace->take());
    if (!inFile.isEmpty())
        return inFile;
    const QString inMemory = ::difference(m_store.model().topLevelItems(), m_oracle.topLevel());
    if (!inMemory.isEmpty())
        return inMemory;
    const QString separator = QStringLiteral(", ");
    const QString emitted = std::exchange(m_signals, {}).join(separator);
    const QString expected = m_oracle.takeSignals().join(separator);
    if (emitted != expected)
        return QStringLiteral("signals (%1) instead of (%2)").arg(emitted, expected);
    const QStringList newsgroups = m_store.model().provider()->bookmarkedNewsgroups();
    return newsgroups == m_oracle.newsgroups()
               ? QString()
               : QStringLiteral("the program is told of (%1) instead of (%2)")
                     .arg(newsgroups.join(QLatin1Char(' ')), m_oracle.newsgroups().join(QLatin1Char(' ')));
}

void BookmarkWalk::both(const std::function<void()> &model, const std::function<void()> &oracle)
{
    const bool fails = m_kind == Failing && chance(30);
    if (fails)
        beginFault();
    model();
    oracle();
    if (fails)
        endFault();
}

void BookmarkWalk::beginFault()
{
    struct Denied {
        int action;
        const char *operation;
    };
    static const std::array<Denied, 7> denials{{{SQLITE_TRANSACTION, "BEGIN"},
                                                {SQLITE_TRANSACTION, "COMMIT"},
                                                {SQLITE_INSERT, "bookmarks"},
                                                {SQLITE_UPDATE, "bookmark_order"},
                                                {SQLITE_UPDATE, "bookmark_name"},
                                                {SQLITE_DELETE, "bookmarks"},
                                                {SQLITE_SELECT, nullptr}}};
    ++m_faultCount;
    StatementFault fault;
    if (chance(40)) {
        const Denied denied = denials.at(std::size_t(upTo(int(denials.size()) - 1)));
        fault.deniedAction = denied.action;
        fault.deniedOperation = denied.operation;
    } else if (chance(20)) {
        fault.isCommitRefused = true;
    } else if (chance(75) || !lock()) {
        fault.change = StatementFault::Change(1 + upTo(3));
        fault.effect = StatementFault::Effect(1 + upTo(2));
        fault.divisor = 1 + upTo(3);
        fault.remainder = upTo(int(fault.divisor) - 1);
    }
    m_modelFaults->set(fault);
    m_oracleFaults->set(fault);
    m_done += QStringLiteral(" (change %1, effect %2, rows %3 of %4, denied %5 %6, refused %7, lock %8)")
                  .arg(fault.change)
                  .arg(fault.effect)
                  .arg(fault.remainder)
                  .arg(fault.divisor)
                  .arg(fault.deniedAction)
                  .arg(QString::fromLatin1(fault.deniedOperation))
                  .arg(int(fault.isCommitRefused))
                  .arg(int(m_locked));
}

void BookmarkWalk::endFault()
{
    m_modelFaults->set({});
    m_oracleFaults->set({});
}

// A transaction that an earlier failure left open may be writing on one side only, because what changes
// nothing is left out there; so a lock has to wait for both to be done.
bool BookmarkWalk::lock()
{
    if (m_locked || !sqlite3_get_autocommit(BookmarkStore::handle()) ||
        !sqlite3_get_autocommit(m_oracle.file().handle()))
        return false;
    static const std::array<const char *, 3> kinds{{"DEFERRED", "IMMEDIATE", "EXCLUSIVE"}};
    const char *kind = kinds.at(std::size_t(upTo(2)));
    m_locked = m_modelTrace->lock(kind) && m_oracleTrace->lock(kind);
    if (!m_locked)
        qFatal("The files are free and can not be locked.");
    return true;
}

int BookmarkWalk::upTo(int last)
{
    return int(m_random() % quint32(last + 1));
}

bool BookmarkWalk::chance(int percent)
{
    return upTo(99) < percent;
}

// A bookmark may have got the id of a folder that was taken back, and have what was in it; nobody sees that.
QVector<OracleItem *> BookmarkWalk::items()
{
    QVector<OracleItem *> items;
    for (const std::unique_ptr<OracleItem> &item : m_oracle.topLevel())
        items.append(item.get());
    for (int i = 0; i < items.size(); ++i) {
        if (!items.at(i)->isFolder)
            continue;
        for (const std::unique_ptr<OracleItem> &child : items.at(i)->children)
            items.append(child.get());
    }
    return items;
}

OracleItem *BookmarkWalk::itemWith(int serial)
{
    const QVector<OracleItem *> all = items();
    const auto found = std::find_if(all.cbegin(), all.cend(),
                                    [serial](const OracleItem *item) { return item->serial == serial; });
    return found == all.cend() ? nullptr : *found;
}

OracleItem *BookmarkWalk::anyItem()
{
    const QVector<OracleItem *> all = items();
    return all.isEmpty() ? nullptr : all.at(upTo(all.size() - 1));
}

OracleItem *BookmarkWalk::anyFolder()
{
    QVector<OracleItem *> folders = items();
    const auto isBookmark = [](const OracleItem *item) { return !item->isFolder; };
    folders.erase(std::remove_if(folders.begin(), folders.end(), isBookmark), folders.end());
    return folders.isEmpty() ? nullptr : folders.at(upTo(folders.size() - 1));
}

OracleItem *BookmarkWalk::anyTarget()
{
    constexpr int deepest = 5;
    OracleItem *folder = chance(25) ? nullptr : anyFolder();
    int depth = 0;
    for (const OracleItem *item = folder; item; item = item->parent)
        ++depth;
    return depth > deepest ? nullptr : folder;
}

QModelIndex BookmarkWalk::indexOf(OracleItem *item)
{
    if (!item)
        return {};
    const QModelIndex parent = indexOf(item->parent);
    m_oracle.touch(item->parent);
    return m_store.model().index(m_oracle.rowOf(item), 0, parent);
}

qint64 BookmarkWalk::numberIn(const char *statement, std::initializer_list<SqlValue> values)
{
    qint64 number = -1;
    m_oracle.file().run(statement, values,
                        [&number](sqlite3_stmt *row) { number = SqlStatement::number(row, 0); });
    return number;
}

// Old items lead to old parents, so the rows above a folder are more than the items above it. An id that is
// not given out yet, because the row that had it was taken back, may be that of the next row.
bool BookmarkWalk::wouldLoop(const QVector<qint64> &ids, const OracleItem *folder)
{
    // An endless tree can be walked in as long as nothing looks at all of it.
    if (m_kind == Lazy && chance(10))
        return false;
    const qint64 lastId =
        qMax(numberIn("SELECT max(bookmark_id) FROM bookmarks"), numberIn("SELECT seq FROM sqlite_sequence"));
    QSet<qint64> above;
    for (; folder; folder = folder->parent) {
        qint64 id = folder->id;
        while (id > 0 && !above.contains(id)) {
            if (id > lastId || ids.contains(id))
                return true;
            above.insert(id);
            id = numberIn("SELECT coalesce(parent_id, -1) FROM bookmarks WHERE bookmark_id=?", {id});
        }
    }
    return false;
}
