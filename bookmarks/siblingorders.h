// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>

class BookmarkItem;

/// What the rows' order column is known to hold, so that a write which would store the value that is there
/// already can be left out. Everything is by row, never by item: while an item is moved, two items and two
/// lists share a row. Only what was written counts; a row that was read is unknown.
class SiblingOrders {
public:
    bool holds(qint64 id, int place) const;
    /// @p place, which holds() denied, was stored for @p id. False when a list with this item cannot be
    /// settled yet: the id is no row's, or the row had another place, which a list that holds the row twice
    /// writes again.
    bool note(qint64 id, int place);
    /// A row was inserted with @p id. There may have been one before it that a failure took back, and whose
    /// item still had its place written, to no effect.
    void forget(qint64 id);

    /// The number of leading items of the list below @p parent (null for the top level) that need no look.
    int settled(const BookmarkItem *parent) const { return m_settled.value(parent); }
    /// The list below @p parent was just written, and its first @p count items are at their places: they stay
    /// there until a list changes otherwise than at its end, or a row that is known is given another place.
    void settle(const BookmarkItem *parent, int count) { m_settled[parent] = count; }
    /// A list changed otherwise than at its end.
    void unsettle() { m_settled.clear(); }

    /// Forgets everything, for when it is not known what was stored.
    void forget();

private:
    QHash<qint64, int> m_places;
    QHash<const BookmarkItem *, int> m_settled; ///< the parents are only compared; they may be gone
};
