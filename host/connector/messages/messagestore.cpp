// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "messagestore.h"

#include <halvora/dbutils.h>
#include <halvora/storagemanager.h>

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

#include <algorithm>
#include <initializer_list>

namespace {

constexpr int maxPiece = 1'000; // messages; about five milliseconds

enum Column { UidColumn, ArrivalColumn, DateColumn, TextColumn, UrlColumn, ReadColumn, DeletableColumn };

/// A statement of one operation. One that can not be prepared is told of once and not run.
class Statement {
public:
    Statement(const QSqlDatabase &database, const QString &text)
        : m_query(database)
    {
        m_query.setForwardOnly(true);
        m_prepared = m_query.prepare(text);
        DBUtils::checkForErrors(m_query);
    }

    QSqlQuery &run(std::initializer_list<QVariant> values = {})
    {
        int position = 0;
        for (const QVariant &value : values)
            m_query.bindValue(position++, value);
        if (m_prepared) {
            m_query.exec();
            DBUtils::checkForErrors(m_query);
        }
        return m_query;
    }

private:
    QSqlQuery m_query;
    bool m_prepared = false;
};

/// From its making to its end.
class Transaction {
public:
    explicit Transaction(const QSqlDatabase &database)
        : m_database(database)
    {
        Statement(m_database, QStringLiteral("BEGIN TRANSACTION")).run();
    }
    ~Transaction() { Statement(m_database, QStringLiteral("COMMIT TRANSACTION")).run(); }
    Q_DISABLE_COPY(Transaction)

private:
    const QSqlDatabase &m_database;
};

MessageEntry entryFromRow(const QSqlQuery &query)
{
    const QString url = query.value(UrlColumn).toString();
    MessageEntry entry;
    entry.message = HMessage(query.value(UidColumn).toString(), query.value(TextColumn).toString(),
                             QDateTime::fromMSecsSinceEpoch(query.value(DateColumn).toLongLong(), Qt::UTC),
                             url.isEmpty() ? UrlInfo() : UrlInfo(QUrl(url, QUrl::StrictMode)));
    entry.message.setRead(query.value(ReadColumn).toBool());
    entry.message.setDeletable(query.value(DeletableColumn).toBool());
    entry.arrival = query.value(ArrivalColumn).toLongLong();
    return entry;
}

} // namespace

bool MessageEntry::isNewerThan(const MessageEntry &other) const
{
    const qint64 own = message.date().toMSecsSinceEpoch();
    const qint64 others = other.message.date().toMSecsSinceEpoch();
    return own == others ? arrival > other.arrival : own > others;
}

MessageStore::MessageStore(StorageManager *storage, const QString &provider)
    : m_storage(storage)
    , m_name(provider + QStringLiteral("-messages"))
    , m_connection(m_name + QUuid::createUuid().toString(QUuid::WithoutBraces))
{
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { writePiece(); });
}

// A connection can be removed only when nothing refers to it any more, not even a handle.
MessageStore::~MessageStore()
{
    finishWriting();
    if (m_open)
        QSqlDatabase::removeDatabase(m_connection);
}

// The disk is not waited for, as with the other databases: the storage manager mends what a power cut breaks.
QSqlDatabase MessageStore::database()
{
    if (m_open)
        return QSqlDatabase::database(m_connection, false);
    m_open = true;
    QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    connection.setDatabaseName(m_storage->databasePath(m_name, StorageManager::Contents::Messages));
    connection.open();
    Statement(connection, QStringLiteral("PRAGMA synchronous = OFF")).run();
    Statement(connection,
              QStringLiteral("CREATE TABLE IF NOT EXISTS messages (account TEXT NOT NULL, uid TEXT NOT NULL, "
                             "arrival INTEGER, message_date INTEGER, message_text TEXT, message_url TEXT, "
                             "is_read BOOLEAN, is_deletable BOOLEAN, is_deleted BOOLEAN, "
                             "PRIMARY KEY (account, uid)) WITHOUT ROWID"))
        .run();
    return connection;
}

MessageStore::Contents MessageStore::load(const QString &account)
{
    finishWriting();
    const QSqlDatabase connection = database();
    Contents contents;
    Statement messages(
        connection, QStringLiteral("SELECT uid, arrival, message_date, message_text, message_url, "
                                   "is_read, is_deletable FROM messages WHERE account=? AND NOT is_deleted "
                                   "ORDER BY message_date DESC, arrival DESC"));
    for (QSqlQuery &query = messages.run({account}); query.next();)
        contents.entries.append(entryFromRow(query));
    Statement deleted(connection, QStringLiteral("SELECT uid FROM messages WHERE account=? AND is_deleted"));
    for (QSqlQuery &query = deleted.run({account}); query.next();)
        contents.deleted.insert(query.value(0).toString());
    return contents;
}

void MessageStore::write(const QString &account, const QVector<MessageEntry> &entries,
                         const QStringList &forgotten)
{
    finishWriting();
    m_pending = {account, entries, forgotten};
    // In the order of the primary key the pages of the table fill one after the other.
    std::sort(m_pending.entries.begin(), m_pending.entries.end(),
              [](const MessageEntry &one, const MessageEntry &other) {
                  return one.message.uid() < other.message.uid();
              });
    if (entries.size() + forgotten.size() > maxPiece)
        m_timer.start(0);
    else
        writePiece();
}

void MessageStore::finishWriting()
{
    while (!m_pending.isEmpty())
        writePiece();
}

void MessageStore::writePiece()
{
    const QStringList forgotten = m_pending.forgotten.mid(0, maxPiece);
    const QVector<MessageEntry> entries = m_pending.entries.mid(0, maxPiece - forgotten.size());
    m_pending.forgotten.erase(m_pending.forgotten.begin(), m_pending.forgotten.begin() + forgotten.size());
    m_pending.entries.remove(0, entries.size());
    if (m_pending.isEmpty())
        m_timer.stop();
    if (entries.isEmpty() && forgotten.isEmpty())
        return;
    const QString &account = m_pending.account;
    const QSqlDatabase connection = database();
    const Transaction transaction(connection);
    Statement forget(connection, QStringLiteral("DELETE FROM messages WHERE account=? AND uid=?"));
    for (const QString &uid : forgotten)
        forget.run({account, uid});
    Statement keep(connection,
                   QStringLiteral("INSERT OR REPLACE INTO messages (account, uid, arrival, "
                                  "message_date, message_text, message_url, is_read, "
                                  "is_deletable, is_deleted) VALUES (?, ?, ?, ?, ?, ?, ?, ?, 0)"));
    for (const MessageEntry &entry : entries) {
        const HMessage &message = entry.message;
        keep.run({account, message.uid(), entry.arrival, message.date().toMSecsSinceEpoch(), message.text(),
                  QString::fromLatin1(message.url().url().toEncoded()), message.isRead(),
                  message.isDeletable()});
    }
}

void MessageStore::markDeleted(const QString &account, const QString &uid)
{
    finishWriting();
    const QSqlDatabase connection = database();
    const Transaction transaction(connection);
    Statement(connection,
              QStringLiteral("INSERT OR REPLACE INTO messages (account, uid, is_deleted) VALUES (?, ?, 1)"))
        .run({account, uid});
}

void MessageStore::clear()
{
    finishWriting();
    const QSqlDatabase connection = database();
    const bool isCleared =
        Statement(connection, QStringLiteral("DELETE FROM messages WHERE NOT is_deleted")).run().isActive();
    // Messages that could not be deleted keep their copies.
    if (isCleared)
        m_storage->removeCopies(m_name);
}
