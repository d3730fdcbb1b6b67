// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hmessagemanager.h>

#include "messagestore.h"

#include <QHash>

#include <algorithm>

namespace {

constexpr int mostMessages = 10'000;

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
    QHash<QString, MessageEntry> known;
    for (const MessageEntry &entry : qAsConst(m_entries))
        known.insert(entry.message.uid(), entry);
    const QDateTime now = QDateTime::currentDateTimeUtc();
    QVector<MessageEntry> fresh;
    QVector<MessageEntry> changed;
    const QVector<HMessage> told = lastOfEach(messages);
    for (const HMessage &message : told) {
        const auto before = known.constFind(message.uid());
        if (before != known.constEnd()) {
            const MessageEntry after{merged(before->message, message), before->arrival};
            if (after.message != before->message) {
                replaceEntry(placeOf(*before), after);
                changed.append(after);
            }
        } else if (!m_deleted.contains(message.uid())) {
            fresh.append({message, ++m_lastArrival});
            if (!message.date().isValid())
                fresh.last().message.setDate(now);
        }
    }
    std::sort(fresh.begin(), fresh.end(), isNewer);
    insertEntries(fresh);
    const QStringList dropped = dropOldest();
    const bool isNews = !fresh.isEmpty() && isKept(fresh.first());
    fresh += changed;
    fresh.erase(std::remove_if(fresh.begin(), fresh.end(),
                               [this](const MessageEntry &entry) { return !isKept(entry); }),
                fresh.end());
    m_store->write(m_account, fresh, dropped);
    if (isNews)
        Q_EMIT newMessagesArrived();
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

/// The uids of those for which there is no room.
QStringList HMessageManager::dropOldest()
{
    QStringList dropped;
    if (m_entries.size() <= mostMessages)
        return dropped;
    for (int row = mostMessages; row < m_entries.size(); ++row)
        dropped.append(m_entries.at(row).message.uid());
    beginRemoveRows({}, mostMessages, m_entries.size() - 1);
    m_entries.resize(mostMessages);
    endRemoveRows();
    return dropped;
}

bool HMessageManager::isKept(const MessageEntry &entry) const
{
    return m_entries.size() < mostMessages || !isNewer(m_entries.last(), entry);
}
