// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>
#include <halvora/hmessage.h>

#include <QAbstractTableModel>
#include <QSet>
#include <QVector>

class Core;

/// The messages that the account service has told the user: one row a message, the newest first. There are
/// always three columns. Unread messages are shown in bold; Qt::UserRole of the last column is true for a
/// message that can not be deleted. GUI thread.
class HALVORA_CONNECTOR_EXPORT HMessageManager : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { TextColumn, DateColumn, DeleteColumn, ColumnCount };

    explicit HMessageManager(Core *core, QObject *parent = nullptr);
    ~HMessageManager() override;

    /// Null for a row that is not there.
    HMessage messageAt(int row) const;
    /// A row that is not there is left alone, and so is a message that can not be deleted.
    void markMessageAsRead(int row);
    void deleteMessage(int row);

    /// Shows the messages of @p account, nobody's when it is empty.
    void setAccount(const QString &account);
    /// Takes what the service told the account along with one reply, in the order of their arrival.
    void receive(const QVector<HMessage> &messages);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    /// Once for each reply that brought messages that were never seen before.
    void newMessagesArrived();

private:
    QVector<HMessage> m_messages;
    QSet<QString> m_deleted; ///< uids
};
