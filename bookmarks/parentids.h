// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QSet>

/// The ids that rows name as their parent: at least those that the file has, because an id is added when a
/// statement that writes it runs, whatever becomes of it, and none is ever removed. Until the file was read
/// every id counts as one of them.
class ParentIds {
public:
    bool contains(qint64 id) const { return !m_isKnown || m_ids.contains(id); }
    void add(qint64 id) { m_ids.insert(id); }
    /// Whether those of the file were all added.
    void setKnown(bool known) { m_isKnown = known; }

private:
    QSet<qint64> m_ids;
    bool m_isKnown = false;
};
