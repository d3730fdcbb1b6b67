// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "newsgrouptable.h"

#include <QByteArrayList>
#include <QString>
#include <QVector>

/// Which newsgroups a person is looking for: those in whose name or description every word occurs, in
/// whatever letter case. Quick enough to be asked at every keystroke over a hundred thousand groups. GUI
/// thread.
class NewsgroupFilter {
public:
    NewsgroupFilter() = default;

    /// The words stay.
    void setTable(const NewsgroupTable &table);
    /// Words are divided by blanks; no words let every group pass.
    void setText(const QString &text);

    /// The rows of the table that pass, in its order.
    const QVector<int> &rows() const { return m_rows; }
    bool isActive() const { return !m_words.isEmpty(); }

private:
    void takeAll();
    QVector<int> search(const QByteArray &word) const;
    void narrow(const QByteArray &word);
    void apply();

    NewsgroupTable m_table;
    QByteArrayList m_words;
    QString m_folded; ///< the text that the words were made of
    QVector<int> m_rows;
};
