// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>
#include <halvora/hmessage.h>

#include <QAbstractTableModel>
#include <QFont>
#include <QSet>
#include <QVector>

#include <memory>

class Core;
class MessageStore;
struct MessageChange;
struct MessageEntry;

/// The messages that the account service has told the user: one row a message, the newest first, at most
/// 10,000. There are always three columns. Unread messages are shown in bold; Qt::UserRole of the last column
/// is true for a message that can not be deleted.
///
/// Each account has its own messages, and they survive the program. What was deleted is not shown again,
/// whatever the service tells. GUI thread.
class HALVORA_CONNECTOR_EXPORT HMessageManager : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { TextColumn, DateColumn, DeleteColumn, ColumnCount };

    /// Begins with the messages of the account that was the last one. @p core outlives the manager.
    explicit HMessageManager(Core *core, QObject *parent = nullptr);
    ~HMessageManager() override;

    /// Null for a row that is not there.
    HMessage messageAt(int row) const;
    /// A row that is not there is left alone.
    void markMessageAsRead(int row);
    /// A row that is not there is left alone, and so is a message that can not be deleted.
    void deleteMessage(int row);

    /// The account whose messages are shown; empty: none.
    QString account() const { return m_account; }
    /// Shows the messages of @p account, now and at the next start; nobody's when it is empty.
    void setAccount(const QString &account);
    /// Takes what the service told the account along with one reply, in the order of their arrival. More than
    /// 300 new or changed messages are one model reset, fewer are single steps.
    void receive(const QVector<HMessage> &messages);
    /// Forgets the messages of every account. What was deleted before stays deleted.
    void clear();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    /// Once for each reply that brought messages that were never seen before.
    void newMessagesArrived();

private:
    void load(const QString &account);
    void compare(const QVector<HMessage> &messages, QVector<MessageEntry> &fresh,
                 QVector<MessageChange> &changes);
    QStringList replaceEach(const QVector<MessageEntry> &fresh, const QVector<MessageChange> &changes);
    QStringList replaceAll(const QVector<MessageEntry> &fresh, const QVector<MessageChange> &changes);
    int placeOf(const MessageEntry &entry) const;
    void replaceEntry(int row, const MessageEntry &entry);
    void insertEntries(const QVector<MessageEntry> &entries);
    QStringList removeOldest();
    void moveIndexes(const QModelIndexList &held, const QStringList &uids);
    bool isKept(const MessageEntry &entry) const;
    void changeRow(int row, const QVector<int> &roles);

    Core *const m_core;
    const std::unique_ptr<MessageStore> m_store;
    QFont m_unreadFont;
    QString m_account;
    QVector<MessageEntry> m_entries; ///< the newest first
    QSet<QString> m_deleted;         ///< uids
    qint64 m_lastArrival = 0;
};
