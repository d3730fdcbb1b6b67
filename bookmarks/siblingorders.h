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
    /// @p place, which holds() denied, was stored for @p id. False when a list with this item can not be
    /// settled yet: the id is no row's, or the row had another place, which it has to get again where the
    /// list holds it twice.
    bool note(qint64 id, int place);
    /// A row was inserted with @p id. There may have been one before it that a failure took back, and whose
    /// item still had its place written, to no effect.
    void forget(qint64 id);

    /// The number of leading items of the list below @p parent (null for the top level) that need no look.
    int settled(const BookmarkItem *parent) const;
    /// The list below @p parent was just written, and its first @p count items are at their places. Only the
    /// list that was written last is remembered: writing another may have moved rows that stand in both.
    void settle(const BookmarkItem *parent, int count);
    /// A list changed otherwise than at its end.
    void unsettle();

    /// Forgets everything, for when it is not known what was stored.
    void forget();

private:
    QHash<qint64, int> m_places;
    const BookmarkItem *m_settledParent = nullptr; ///< only compared; it may be gone
    int m_settledCount = 0;
};
