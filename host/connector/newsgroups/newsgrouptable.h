// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// The newsgroups of one server with their descriptions, sorted by the bytes of their names, in a few blocks
/// of memory: a hundred thousand cost as many bytes as their texts and no more than a handful of allocations.
/// A value that never changes; any thread may read it, and a copy shares it.
class NewsgroupTable {
public:
    NewsgroupTable() = default;
    /// @p text has one line "name", tab, "description", line feed for each group, in UTF-8, sorted and
    /// without duplicates; NewsgroupTableBuilder makes it.
    explicit NewsgroupTable(const QByteArray &text);

    int count() const { return m_starts.size(); }
    bool isEmpty() const { return m_starts.isEmpty(); }
    QString name(int row) const;
    QString description(int row) const;
    /// The row of the group of exactly this name, -1 for none.
    int row(const QString &name) const;

    /// What the table was made of.
    QByteArray text() const { return m_text; }
    /// The same without differences of letter case, for searching.
    const QByteArray &foldedText() const { return m_folded; }
    /// Where each row begins in foldedText().
    const QVector<int> &foldedStarts() const { return m_foldedStarts; }

private:
    QByteArray rawName(int row) const;
    int endOf(int row) const;

    QByteArray m_text;
    QByteArray m_folded;
    QVector<int> m_starts;
    QVector<int> m_foldedStarts;
};
