// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/hmessage.h>

#include <QSet>
#include <QStringList>
#include <QTimer>
#include <QVector>

class QSqlDatabase;
class StorageManager;

/// A message in the order in which messages are shown: by its date, and where two have the same one, by when
/// they came.
struct MessageEntry {
    HMessage message;
    qint64 arrival = 0; ///< counts what comes; a message that comes again keeps its number

    bool isNewerThan(const MessageEntry &other) const;
};

Q_DECLARE_TYPEINFO(MessageEntry, Q_MOVABLE_TYPE);

/// A known message that comes again with other content.
struct MessageChange {
    int row = 0; ///< before any change
    MessageEntry before;
    MessageEntry after;
};

/// The messages of every account in the profile, in a database of their own that is opened when it is first
/// needed. Each operation is one transaction, but for large writes: those go in pieces whenever the event
/// loop has nothing else to do, and before anything else is done. A failure goes to DBUtils and has no
/// other consequence. GUI thread.
class MessageStore {
public:
    struct Contents {
        QVector<MessageEntry> entries; ///< the newest first
        QSet<QString> deleted;         ///< the uids of messages that must not be shown again
    };

    /// The file is named after @p provider. @p storage outlives the store.
    MessageStore(StorageManager *storage, const QString &provider);
    ~MessageStore();
    Q_DISABLE_COPY(MessageStore)

    Contents load(const QString &account);
    /// Writes @p entries, new or known, and forgets messages that nobody will miss.
    void write(const QString &account, const QVector<MessageEntry> &entries, const QStringList &forgotten);
    /// Keeps of the message only that it was deleted.
    void markDeleted(const QString &account, const QString &uid);
    /// Forgets the messages of every account and the dated copies of them, but not which ones were deleted.
    void clear();

private:
    struct Pending {
        QString account;
        QVector<MessageEntry> entries;
        QStringList forgotten;

        bool isEmpty() const { return entries.isEmpty() && forgotten.isEmpty(); }
    };

    QSqlDatabase database();
    void writePiece();
    void finishWriting();

    StorageManager *const m_storage;
    const QString m_name;
    const QString m_connection;
    bool m_open = false;
    Pending m_pending; ///< what of the last write is still to be done
    QTimer m_timer;
};
