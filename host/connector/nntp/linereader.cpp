// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "linereader.h"

#include <cstring>

LineReader::LineReader(int limit)
    : m_limit(limit)
{
}

void LineReader::append(const QByteArray &bytes)
{
    std::memcpy(makeRoom(bytes.size()), bytes.constData(), static_cast<std::size_t>(bytes.size()));
    keep(bytes.size());
}

// What was taken goes here, once for all of it: to move the rest up after every line would take longer than
// the network for a list of a hundred thousand.
char *LineReader::makeRoom(int size)
{
    m_bytes.remove(0, m_taken);
    m_taken = 0;
    m_kept = m_bytes.size();
    m_bytes.reserve(m_kept + size); // what is not kept of it must not be given back and asked for again
    m_bytes.resize(m_kept + size);
    return m_bytes.data() + m_kept;
}

void LineReader::keep(int size)
{
    m_bytes.resize(m_kept + size);
}

std::optional<std::string_view> LineReader::nextLine()
{
    const int length = lengthOfNext();
    if (length < 0 || length >= m_limit)
        return std::nullopt;
    const char *start = m_bytes.constData() + m_taken;
    m_taken += length + 1;
    const bool endsWithReturn = length > 0 && start[length - 1] == '\r';
    return std::string_view(start, static_cast<std::size_t>(endsWithReturn ? length - 1 : length));
}

std::optional<QByteArray> LineReader::takeLine()
{
    const auto line = nextLine();
    if (!line)
        return std::nullopt;
    return QByteArray(line->data(), static_cast<int>(line->size()));
}

bool LineReader::isTooLong() const
{
    // A limit's worth of bytes with no line feed among them needs at least one byte more to become a line.
    const int length = lengthOfNext();
    return (length < 0 ? m_bytes.size() - m_taken : length) >= m_limit;
}

void LineReader::clear()
{
    m_bytes.clear();
    m_kept = 0;
    m_taken = 0;
}

/// Up to its line feed, or -1 when there is none.
int LineReader::lengthOfNext() const
{
    const char *start = m_bytes.constData() + m_taken;
    const void *end = std::memchr(start, '\n', static_cast<std::size_t>(m_bytes.size() - m_taken));
    return end ? static_cast<int>(static_cast<const char *>(end) - start) : -1;
}
