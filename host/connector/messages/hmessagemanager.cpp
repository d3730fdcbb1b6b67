// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hmessagemanager.h>

#include "messagestore.h"

#include <halvora/core.h>
#include <halvora/localemanager.h>
#include <halvora/plaintooltip.h>
#include <halvora/stringformat.h>

#include <QSettings>

#include <algorithm>

namespace {

QString accountKey()
{
    return QStringLiteral("Messages/Account");
}

} // namespace

HMessageManager::HMessageManager(Core *core, QObject *parent)
    : QAbstractTableModel(parent)
    , m_core(core)
    , m_store(std::make_unique<MessageStore>(core->storage(), core->providerName()))
{
    m_unreadFont.setBold(true);
    // Dates are written in the language of the program.
    connect(core->locale(), &LocaleManager::languageChanged, this, [this] {
        if (!m_entries.isEmpty())
            Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1), {Qt::DisplayRole});
    });
    load(core->settings().value(accountKey()).toString());
}

HMessageManager::~HMessageManager() = default;

HMessage HMessageManager::messageAt(int row) const
{
    return row >= 0 && row < m_entries.size() ? m_entries.at(row).message : HMessage();
}

void HMessageManager::markMessageAsRead(int row)
{
    if (row < 0 || row >= m_entries.size() || m_entries.at(row).message.isRead())
        return;
    m_entries[row].message.setRead(true);
    m_store->write(m_account, {m_entries.at(row)}, {});
    changeRow(row, {Qt::FontRole});
}

void HMessageManager::deleteMessage(int row)
{
    if (row < 0 || row >= m_entries.size() || !m_entries.at(row).message.isDeletable())
        return;
    const QString uid = m_entries.at(row).message.uid();
    m_deleted.insert(uid);
    m_store->markDeleted(m_account, uid);
    beginRemoveRows({}, row, row);
    m_entries.removeAt(row);
    endRemoveRows();
}

void HMessageManager::setAccount(const QString &account)
{
    if (account == m_account)
        return;
    if (account.isEmpty())
        m_core->settings().remove(accountKey());
    else
        m_core->settings().setValue(accountKey(), account);
    load(account);
}

// Without an account nothing is looked up, so that a profile in which nobody ever logged in has no database.
void HMessageManager::load(const QString &account)
{
    MessageStore::Contents contents;
    if (!account.isEmpty())
        contents = m_store->load(account);
    beginResetModel();
    m_account = account;
    m_entries.swap(contents.entries);
    m_deleted.swap(contents.deleted);
    m_lastArrival = 0;
    for (const MessageEntry &entry : qAsConst(m_entries))
        m_lastArrival = std::max(m_lastArrival, entry.arrival);
    endResetModel();
}

void HMessageManager::clear()
{
    m_store->clear();
    beginResetModel();
    m_entries.clear();
    endResetModel();
}

void HMessageManager::changeRow(int row, const QVector<int> &roles)
{
    Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1), roles);
}

int HMessageManager::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_entries.size();
}

int HMessageManager::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant HMessageManager::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const HMessage &message = m_entries.at(index.row()).message;
    if (role == Qt::FontRole)
        return message.isRead() ? QVariant() : m_unreadFont;
    switch (index.column()) {
    case TextColumn:
        if (role == Qt::DisplayRole)
            return message.text();
        return role == Qt::ToolTipRole ? plainToolTip(message.text()) : QVariant();
    case DateColumn:
        return role == Qt::DisplayRole ? StringFormat::dateTime(message.date(), StringFormat::ShortDateTime)
                                       : QVariant();
    default:
        return role == Qt::UserRole ? !message.isDeletable() : QVariant();
    }
}

Qt::ItemFlags HMessageManager::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() ? flags | Qt::ItemNeverHasChildren : flags;
}
