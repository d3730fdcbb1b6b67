// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkstore.h"

#include "connector/cvconnectorplugin.h"
#include "plugin/constants.h"

#include <halvora/storagemanager.h>

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QTest>

#include <sqlite3.h>

namespace {

/// An SQLite connection beside the model's, through the library itself.
class Connection {
public:
    explicit Connection(const QString &path)
    {
        if (sqlite3_open(path.toUtf8().constData(), &m_handle) != SQLITE_OK)
            qFatal("%s", sqlite3_errmsg(m_handle));
    }
    ~Connection() { sqlite3_close(m_handle); }
    Q_DISABLE_COPY(Connection)

    QVector<BookmarkRow> select(const char *statement)
    {
        QVector<BookmarkRow> rows;
        const auto add = [](void *list, int count, char **values, char **) {
            BookmarkRow row;
            for (int i = 0; i < count; ++i)
                row.append(values[i] ? QString::fromUtf8(values[i]) : QStringLiteral("NULL"));
            static_cast<QVector<BookmarkRow> *>(list)->append(row);
            return 0;
        };
        run(statement, add, &rows);
        return rows;
    }
    void run(const char *statements, int (*callback)(void *, int, char **, char **) = nullptr,
             void *data = nullptr)
    {
        if (sqlite3_exec(m_handle, statements, callback, data, nullptr) != SQLITE_OK)
            qFatal("%s: %s", statements, sqlite3_errmsg(m_handle));
    }

private:
    sqlite3 *m_handle = nullptr;
};

} // namespace

BookmarkStore::BookmarkStore(bool openNow)
    : m_core(std::make_unique<Core>(m_profile.path()))
    , m_plugin(std::make_unique<CVConnectorPlugin>(m_core.get()))
{
    if (openNow)
        open();
}

BookmarkStore::~BookmarkStore()
{
    close();
}

void BookmarkStore::open()
{
    m_model = std::make_unique<OpenBookmarkManager>(m_plugin.get());
    QCoreApplication::sendPostedEvents();
    m_model->load();
}

void BookmarkStore::close()
{
    m_tester.reset();
    m_model.reset();
}

void BookmarkStore::check()
{
    m_tester = std::make_unique<QAbstractItemModelTester>(
        m_model.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
}

QString BookmarkStore::path() const
{
    return m_core->storage()->databasePath(m_plugin->configName());
}

sqlite3 *BookmarkStore::handle()
{
    const QVariant handle = QSqlDatabase::database(constants::bookmarkManagerName, false).driver()->handle();
    return *static_cast<sqlite3 *const *>(handle.constData());
}

QModelIndex BookmarkStore::at(const QVector<int> &rows) const
{
    QModelIndex index;
    for (const int row : rows)
        index = m_model->index(row, 0, index);
    return index;
}

QModelIndex BookmarkStore::addFolder(const QString &name, const QModelIndex &parent)
{
    const QModelIndex index = m_model->addFolder(parent);
    m_model->setData(index, name);
    return index;
}

QStringList BookmarkStore::names(const QModelIndex &parent) const
{
    QStringList names;
    for (int row = 0; row < m_model->rowCount(parent); ++row)
        names.append(m_model->index(row, 0, parent).data(Qt::EditRole).toString());
    return names;
}

QVector<BookmarkRow> BookmarkStore::rows(const QString &path)
{
    return Connection(path).select("SELECT * FROM bookmarks ORDER BY bookmark_id");
}

QStringList BookmarkStore::orders(const QString &parentId) const
{
    const QString statement =
        QStringLiteral("SELECT coalesce(bookmark_name, bookmark_newsgroup) || ' ' || bookmark_order "
                       "FROM bookmarks WHERE parent_id IS %1 ORDER BY bookmark_order, bookmark_id")
            .arg(parentId);
    QStringList orders;
    const QVector<BookmarkRow> found = Connection(path()).select(statement.toUtf8().constData());
    for (const BookmarkRow &row : found)
        orders.append(row.first());
    return orders;
}

void BookmarkStore::execute(const QString &path, const QString &statements)
{
    Connection(path).run(statements.toUtf8().constData());
}
