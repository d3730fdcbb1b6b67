// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/bookmarkednames.h"

#include <cstring>

// Newsgroups share their beginnings, so the length and the end tell them apart.
std::size_t BookmarkedNames::mark(const QString &name)
{
    constexpr int tail = 4;
    quint64 end = 0;
    const int used = qMin(name.size(), tail);
    std::memcpy(&end, name.constData() + (name.size() - used), std::size_t(used) * sizeof(QChar));
    const quint64 mixed = (end + quint64(name.size()) * 0x9E3779B97F4A7C15U) * 0xD6E8FEB86659FD93U;
    return std::size_t(mixed >> (64 - markBits));
}

bool BookmarkedNames::contains(const QString &name) const
{
    return m_marks[mark(name)] && m_counts.contains(name);
}

void BookmarkedNames::assign(const QStringList &names)
{
    if (names.isSharedWith(m_list))
        return;
    m_list = names;
    m_counts.clear();
    m_marks.reset();
    for (const QString &name : names)
        count(name);
}

void BookmarkedNames::append(const QString &name)
{
    m_list.append(name);
    count(name);
}

bool BookmarkedNames::removeFirst(const QString &name)
{
    if (!contains(name))
        return false;
    m_list.removeOne(name);
    const auto found = m_counts.find(name);
    if (--*found == 0)
        m_counts.erase(found);
    return true;
}

void BookmarkedNames::count(const QString &name)
{
    ++m_counts[name];
    m_marks.set(mark(name));
}
