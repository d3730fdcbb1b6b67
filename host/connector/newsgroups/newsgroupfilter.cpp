// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "newsgroupfilter.h"

#include <algorithm>
#include <cstring>
#include <numeric>

namespace {

const char *find(const char *from, const char *end, const QByteArray &word)
{
    const void *found = ::memmem(from, std::size_t(end - from), word.constData(), std::size_t(word.size()));
    return static_cast<const char *>(found);
}

} // namespace

void NewsgroupFilter::setTable(const NewsgroupTable &table)
{
    m_table = table;
    takeAll();
    apply();
}

void NewsgroupFilter::setText(const QString &text)
{
    const QString folded = text.toCaseFolded().simplified();
    if (folded == m_folded)
        return;
    // Each word of a text that has grown holds the word that stood in its place, so whoever did not pass then
    // does not pass now.
    const bool hasGrown = folded.startsWith(m_folded);
    m_folded = folded;
    m_words = folded.toUtf8().split(' ');
    m_words.removeAll(QByteArray());
    if (!hasGrown)
        takeAll();
    apply();
}

void NewsgroupFilter::takeAll()
{
    m_rows.resize(m_table.count());
    std::iota(m_rows.begin(), m_rows.end(), 0);
}

void NewsgroupFilter::apply()
{
    for (const QByteArray &word : qAsConst(m_words)) {
        if (m_rows.size() == m_table.count())
            m_rows = search(word);
        else
            narrow(word);
    }
}

/// Looks through all rows at once: between two hits there is nothing to stop at.
QVector<int> NewsgroupFilter::search(const QByteArray &word) const
{
    QVector<int> rows;
    const QVector<int> &starts = m_table.foldedStarts();
    const char *begin = m_table.foldedText().constData();
    const char *end = begin + m_table.foldedText().size();
    for (const char *hit = find(begin, end, word); hit;) {
        const auto next = std::upper_bound(starts.cbegin(), starts.cend(), int(hit - begin));
        rows.append(int(next - starts.cbegin()) - 1);
        hit = next == starts.cend() ? nullptr : find(begin + *next, end, word);
    }
    return rows;
}

void NewsgroupFilter::narrow(const QByteArray &word)
{
    const QVector<int> &starts = m_table.foldedStarts();
    const char *begin = m_table.foldedText().constData();
    const char *end = begin + m_table.foldedText().size();
    const auto lacksWord = [&](int row) {
        const char *rowEnd = row + 1 < starts.size() ? begin + starts.at(row + 1) : end;
        return find(begin + starts.at(row), rowEnd, word) == nullptr;
    };
    m_rows.erase(std::remove_if(m_rows.begin(), m_rows.end(), lacksWord), m_rows.end());
}
