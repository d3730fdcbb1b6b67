// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QStringList>

#include <bitset>

/// Newsgroup names in the order in which they came, each as often as it came, and a fast answer whether a
/// name is among them. Most names that are asked about are not, and a table of marks says so for the price of
/// a few instructions; below some 40 names a hash alone would be slower than walking the list.
class BookmarkedNames {
public:
    const QStringList &list() const { return m_list; }
    /// Whether the list holds exactly @p name.
    bool contains(const QString &name) const;

    void assign(const QStringList &names);
    void append(const QString &name);
    /// Takes the first occurrence of @p name out; false when there is none.
    bool removeFirst(const QString &name);

private:
    static constexpr int markBits = 15;

    static std::size_t mark(const QString &name);
    void count(const QString &name);

    QStringList m_list;
    QHash<QString, int> m_counts;
    std::bitset<(1U << markBits)> m_marks; ///< a superset of the names: a removal leaves its mark
};
