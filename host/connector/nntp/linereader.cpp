// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "linereader.h"

LineReader::LineReader(int limit)
    : m_limit(limit)
{
}

std::optional<QByteArray> LineReader::takeLine()
{
    const int end = m_bytes.indexOf('\n');
    if (end < 0 || isTooLong())
        return std::nullopt;
    QByteArray line = m_bytes.left(end);
    m_bytes.remove(0, end + 1);
    if (line.endsWith('\r'))
        line.chop(1);
    return line;
}

bool LineReader::isTooLong() const
{
    // A limit's worth of bytes with no line feed among them needs at least one byte more to become a line.
    const int end = m_bytes.indexOf('\n');
    return (end < 0 ? m_bytes.size() : end) >= m_limit;
}
