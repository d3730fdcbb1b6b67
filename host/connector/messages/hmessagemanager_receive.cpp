// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hmessagemanager.h>

#include "messagestore.h"

#include <QHash>

#include <algorithm>

namespace {

constexpr int mostMessages = 10'000;
constexpr int maxSteps = 300; // changes that views follow one by one

bool isNewer(const MessageEntry &one, const MessageEntry &other)
{
    return one.isNewerThan(other);
}

// A message that comes twice in one reply is the last one, at the place of the last one.
QVector<HMessage> lastOfEach(const QVector<HMessage> &messages)
{
    QVector<HMessage> last;
    QSet<QString> seen;
    for (auto message = messages.crbegin(); message != messages.crend(); ++message) {
        if (!message->isNull() && !seen.contains(message->uid())) {
            seen.insert(message->uid());
            last.append(*message);
        }
    }
    std::reverse(last.begin(), last.end());
    return last;
}

// What was read stays read, because the service may not have been told yet.
HMessage merged(const HMessage &known, const HMessage &told)
{
    HMessage message = told;
    message.setRead(known.isRead() || told.isRead());
    if (!message.date().isValid())
        message.setDate(known.date());
    return message;
}

} // namespace

void HMessageManager::receive(const QVector<HMessage> &messages)
{
    if (m_account.isEmpty())
        return;
    QVector<MessageEntry> fresh;
    QVector<MessageChange> changes;
    compare(lastOfEach(messages), fresh, changes);
    std::sort(fresh.begin(), fresh.end(), isNewer);
    const QStringList dropped =
        fresh.size() + changes.size() > maxSteps ? replaceAll(fresh, changes) : replaceEach(fresh, changes);
    const bool isNews = !fresh.isEmpty() && isKept(fresh.first());
    for (const MessageChange &change : qAsConst(changes))
        fresh.append(change.after);
    fresh.erase(std::remove_if(fresh.begin(), fresh.end(),
                               [this](const MessageEntry &entry) { return !isKept(entry); }),
                fresh.end());
    m_store->write(m_account, fresh, dropped);
    if (isNews)
        Q_EMIT newMessagesArrived();
}

/// Sorts @p messages into new ones and known ones with other content; the rest is dropped.
void HMessageManager::compare(const QVector<HMessage> &messages, QVector<MessageEntry> &fresh,
                              QVector<MessageChange> &changes)
{
    QHash<QString, int> rows;
    rows.reserve(m_entries.size());
    for (int row = 0; row < m_entries.size(); ++row)
        rows.insert(m_entries.at(row).message.uid(), row);
    const QDateTime now = QDateTime::currentDateTimeUtc();
    for (const HMessage &message : messages) {
        const int row = rows.value(message.uid(), -1);
        if (row >= 0) {
            const MessageEntry &before = m_entries.at(row);
            const MessageEntry after{merged(before.message, message), before.arrival};
            if (after.message != before.message)
                changes.append({row, before, after});
        } else if (!m_deleted.contains(message.uid())) {
            fresh.append({message, ++m_lastArrival});
            if (!message.date().isValid())
                fresh.last().message.setDate(now);
        }
    }
}

/// Answers the uids of those for which there is no room.
QStringList HMessageManager::replaceEach(const QVector<MessageEntry> &fresh,
                                         const QVector<MessageChange> &changes)
{
    for (const MessageChange &change : changes)
        replaceEntry(placeOf(change.before), change.after);
    insertEntries(fresh);
    return removeOldest();
}

/// The same in one change of the layout: for each row that moves, views take time in proportion to all rows.
/// A reset would lose the current row and with it the message that is being read.
QStringList HMessageManager::replaceAll(const QVector<MessageEntry> &fresh,
                                        const QVector<MessageChange> &changes)
{
    if (!fresh.isEmpty()) {
        beginInsertRows({}, m_entries.size(), m_entries.size() + fresh.size() - 1);
        m_entries += fresh;
        endInsertRows();
    }
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList held = persistentIndexList();
    QStringList uids;
    for (const QModelIndex &index : held)
        uids.append(m_entries.at(index.row()).message.uid());
    for (const MessageChange &change : changes)
        m_entries[change.row] = change.after;
    std::sort(m_entries.begin(), m_entries.end(), isNewer);
    moveIndexes(held, uids);
    Q_EMIT layoutChanged({}, VerticalSortHint);
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    return removeOldest();
}

/// Points each of @p held to the row where the message of the same place in @p uids is now.
void HMessageManager::moveIndexes(const QModelIndexList &held, const QStringList &uids)
{
    if (held.isEmpty())
        return;
    QHash<QString, int> rows;
    rows.reserve(m_entries.size());
    for (int row = 0; row < m_entries.size(); ++row)
        rows.insert(m_entries.at(row).message.uid(), row);
    QModelIndexList moved;
    for (int i = 0; i < held.size(); ++i)
        moved.append(index(rows.value(uids.at(i)), held.at(i).column()));
    changePersistentIndexList(held, moved);
}

/// The row of @p entry, or the one that it would have.
int HMessageManager::placeOf(const MessageEntry &entry) const
{
    return int(std::lower_bound(m_entries.cbegin(), m_entries.cend(), entry, isNewer) - m_entries.cbegin());
}

void HMessageManager::replaceEntry(int row, const MessageEntry &entry)
{
    // The row above which it goes, as if it were still where it is.
    const int place = placeOf(entry);
    if (place != row && place != row + 1) {
        beginMoveRows({}, row, row, {}, place);
        m_entries.move(row, place > row ? place - 1 : place);
        endMoveRows();
        row = place > row ? place - 1 : place;
    }
    m_entries[row] = entry;
    changeRow(row, {});
}

// Those that come to stand beside each other are announced together.
void HMessageManager::insertEntries(const QVector<MessageEntry> &entries)
{
    for (int next = 0; next < entries.size();) {
        const int row = placeOf(entries.at(next));
        int end = next + 1;
        while (end < entries.size() &&
               (row == m_entries.size() || isNewer(entries.at(end), m_entries.at(row))))
            ++end;
        beginInsertRows({}, row, row + end - next - 1);
        m_entries.insert(row, end - next, MessageEntry());
        std::copy(entries.cbegin() + next, entries.cbegin() + end, m_entries.begin() + row);
        endInsertRows();
        next = end;
    }
}

QStringList HMessageManager::removeOldest()
{
    QStringList dropped;
    for (int row = mostMessages; row < m_entries.size(); ++row)
        dropped.append(m_entries.at(row).message.uid());
    if (dropped.isEmpty())
        return dropped;
    beginRemoveRows({}, mostMessages, m_entries.size() - 1);
    m_entries.resize(mostMessages);
    endRemoveRows();
    return dropped;
}

bool HMessageManager::isKept(const MessageEntry &entry) const
{
    return m_entries.size() < mostMessages || !isNewer(m_entries.last(), entry);
}
