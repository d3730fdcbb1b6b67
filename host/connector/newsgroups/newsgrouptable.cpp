// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "newsgrouptable.h"

#include <algorithm>

namespace {

bool isAscii(const QByteArray &bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

QByteArray folded(const QByteArray &text)
{
    return isAscii(text) ? text.toLower() : QString::fromUtf8(text).toCaseFolded().toUtf8();
}

QVector<int> lineStarts(const QByteArray &text)
{
    QVector<int> starts;
    starts.reserve(int(std::count(text.begin(), text.end(), '\n')));
    int start = 0;
    for (int end = text.indexOf('\n'); end >= 0; end = text.indexOf('\n', start)) {
        starts.append(start);
        start = end + 1;
    }
    return starts;
}

} // namespace

NewsgroupTable::NewsgroupTable(const QByteArray &text)
    : m_text(text)
    , m_folded(folded(text))
    , m_starts(lineStarts(text))
    , m_foldedStarts(lineStarts(m_folded))
{
}

int NewsgroupTable::endOf(int row) const
{
    return (row + 1 < m_starts.size() ? m_starts.at(row + 1) : m_text.size()) - 1;
}

QByteArray NewsgroupTable::rawName(int row) const
{
    const int start = m_starts.at(row);
    return QByteArray::fromRawData(m_text.constData() + start, m_text.indexOf('\t', start) - start);
}

QString NewsgroupTable::name(int row) const
{
    return QString::fromUtf8(rawName(row));
}

QString NewsgroupTable::description(int row) const
{
    const int start = m_text.indexOf('\t', m_starts.at(row)) + 1;
    return QString::fromUtf8(m_text.constData() + start, endOf(row) - start);
}

int NewsgroupTable::row(const QString &name) const
{
    const QByteArray wanted = name.toUtf8();
    int low = 0;
    int high = count();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (rawName(middle) < wanted)
            low = middle + 1;
        else
            high = middle;
    }
    return low < count() && rawName(low) == wanted ? low : -1;
}
