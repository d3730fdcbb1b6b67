// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/siblingorders.h"

bool SiblingOrders::holds(qint64 id, int place) const
{
    const auto found = m_places.constFind(id);
    return found != m_places.constEnd() && *found == place;
}

bool SiblingOrders::note(qint64 id, int place)
{
    if (id < 1)
        return false;
    const bool isFirst = !m_places.contains(id);
    m_places[id] = place;
    return isFirst;
}

void SiblingOrders::forget(qint64 id)
{
    if (m_places.remove(id) > 0)
        unsettle();
}

int SiblingOrders::settled(const BookmarkItem *parent) const
{
    return parent == m_settledParent ? m_settledCount : 0;
}

void SiblingOrders::settle(const BookmarkItem *parent, int count)
{
    m_settledParent = parent;
    m_settledCount = count;
}

void SiblingOrders::unsettle()
{
    m_settledCount = 0;
}

void SiblingOrders::forget()
{
    m_places.clear();
    unsettle();
}
