// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/siblingorders.h"

bool SiblingOrders::holds(qint64 id, int place) const
{
    const auto found = m_places.constFind(id);
    return found != m_places.constEnd() && *found == place;
}

// While an item is moved two lists hold its row, so a new place in one of them unsettles the other.
bool SiblingOrders::note(qint64 id, int place)
{
    if (id < 1)
        return false;
    const bool isFirst = !m_places.contains(id);
    if (!isFirst)
        unsettle();
    m_places[id] = place;
    return isFirst;
}

void SiblingOrders::forget(qint64 id)
{
    if (m_places.remove(id) > 0)
        unsettle();
}

void SiblingOrders::forget()
{
    m_places.clear();
    unsettle();
}
