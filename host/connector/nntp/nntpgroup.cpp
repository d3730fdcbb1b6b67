// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/nntpgroup.h>

#include <QList>

#include <algorithm>
#include <limits>

namespace {

// One less than the largest, so that what follows the last article has a number, too.
constexpr qint64 LargestNumber = std::numeric_limits<qint64>::max() - 1;

std::optional<qint64> number(const QByteArray &word)
{
    const auto isDigit = [](char character) { return character >= '0' && character <= '9'; };
    if (word.isEmpty() || !std::all_of(word.cbegin(), word.cend(), isDigit))
        return std::nullopt;
    bool fits = false;
    const qint64 value = word.toLongLong(&fits);
    return fits ? std::min(value, LargestNumber) : LargestNumber;
}

} // namespace

std::optional<NntpGroup> NntpGroup::fromReply(const QByteArray &line)
{
    const QList<QByteArray> words = line.simplified().split(' ');
    if (words.size() < 4)
        return std::nullopt;
    const auto count = number(words.at(1));
    const auto first = number(words.at(2));
    const auto last = number(words.at(3));
    if (!count || !first || !last)
        return std::nullopt;
    NntpGroup group;
    // Servers show an empty group as "0 0 0", as "0 5 4" and as "0 5 5" (RFC 3977 section 6.1.1.2).
    if (*count == 0 || *last < *first)
        return group;
    group.first = *first;
    group.last = *last;
    const qint64 others = *last - *first;
    group.count = std::min(*count - 1, others) + 1;
    return group;
}
