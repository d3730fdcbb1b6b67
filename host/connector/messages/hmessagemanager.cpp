// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hmessagemanager.h>

#include <halvora/stringformat.h>

#include <QFont>

HMessageManager::HMessageManager(Core *core, QObject *parent)
    : QAbstractTableModel(parent)
{
    Q_UNUSED(core)
}

HMessageManager::~HMessageManager() = default;

HMessage HMessageManager::messageAt(int row) const
{
    return m_messages.value(row);
}

void HMessageManager::markMessageAsRead(int row)
{
    if (row < 0 || row >= m_messages.size() || m_messages.at(row).isRead())
        return;
    m_messages[row].setRead(true);
    Q_EMIT dataChanged(index(row, TextColumn), index(row, DeleteColumn), {Qt::FontRole});
}

void HMessageManager::deleteMessage(int row)
{
    if (row < 0 || row >= m_messages.size() || !m_messages.at(row).isDeletable())
        return;
    m_deleted.insert(m_messages.at(row).uid());
    beginRemoveRows({}, row, row);
    m_messages.removeAt(row);
    endRemoveRows();
}

void HMessageManager::setAccount(const QString &account)
{
    Q_UNUSED(account)
    beginResetModel();
    m_messages.clear();
    m_deleted.clear();
    endResetModel();
}

void HMessageManager::receive(const QVector<HMessage> &messages)
{
    QVector<HMessage> fresh;
    for (const HMessage &message : messages) {
        if (!message.isNull() && !m_deleted.contains(message.uid()))
            fresh.prepend(message);
    }
    if (fresh.isEmpty())
        return;
    beginInsertRows({}, 0, fresh.size() - 1);
    m_messages = fresh + m_messages;
    endInsertRows();
    Q_EMIT newMessagesArrived();
}

int HMessageManager::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_messages.size();
}

int HMessageManager::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant HMessageManager::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const HMessage &message = m_messages.at(index.row());
    if (role == Qt::FontRole) {
        QFont font;
        font.setBold(!message.isRead());
        return font;
    }
    if (role == Qt::UserRole && index.column() == DeleteColumn)
        return !message.isDeletable();
    if (role == Qt::DisplayRole && index.column() == TextColumn)
        return message.text();
    if (role == Qt::DisplayRole && index.column() == DateColumn)
        return StringFormat::dateTime(message.date(), StringFormat::ShortDateTime);
    return {};
}

Qt::ItemFlags HMessageManager::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() ? flags | Qt::ItemNeverHasChildren : flags;
}
