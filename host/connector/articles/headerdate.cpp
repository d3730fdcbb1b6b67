// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "headerdate.h"

#include <QByteArray>
#include <QDateTime>

#include <array>
#include <cctype>

namespace {

constexpr int longest = 200;

struct Zone {
    const char *name;
    const char *offset;
};

constexpr std::array<Zone, 8> americanZones = {{{"EST", "-0500"},
                                                {"EDT", "-0400"},
                                                {"CST", "-0600"},
                                                {"CDT", "-0500"},
                                                {"MST", "-0700"},
                                                {"MDT", "-0600"},
                                                {"PST", "-0800"},
                                                {"PDT", "-0700"}}};

QByteArray withoutComments(const QByteArray &field)
{
    QByteArray text;
    int depth = 0;
    for (const char c : field) {
        if (c == '(')
            ++depth;
        if (depth == 0)
            text += c;
        if (c == ')' && depth > 0)
            --depth;
    }
    return text.simplified();
}

bool isNumber(const QByteArray &word)
{
    return !word.isEmpty() && std::isdigit(static_cast<unsigned char>(word.at(0))) != 0;
}

/// A zone as an offset; any name that says nothing is taken for UTC, as the standard advises.
QByteArray zoneOffset(const QByteArray &word)
{
    if (word.size() == 5 && (word.at(0) == '+' || word.at(0) == '-'))
        return word;
    for (const Zone &zone : americanZones) {
        if (word.toUpper() == zone.name)
            return zone.offset;
    }
    return "+0000";
}

/// Years of two or three digits as RFC 5322 section 4.3 reads them.
QByteArray fullYear(const QByteArray &word)
{
    if (word.size() == 3)
        return QByteArray::number(1900 + word.toInt());
    if (word.size() == 2)
        return QByteArray::number((word.toInt() < 50 ? 2000 : 1900) + word.toInt());
    return word;
}

} // namespace

QDateTime headerdate::parse(const QByteArray &field)
{
    const int comma = field.left(longest).indexOf(',');
    QByteArrayList words = withoutComments(field.left(longest).mid(comma + 1)).split(' ');
    if (words.size() > 1 && !isNumber(words.constFirst()))
        words.removeFirst(); // the day's name without its comma
    if (words.size() < 4 || words.at(1).size() < 3)
        return {};
    const QByteArray day = words.at(0).rightJustified(2, '0');
    const QByteArray month = words.at(1).left(1).toUpper() + words.at(1).mid(1, 2).toLower();
    const QByteArray zone = zoneOffset(words.value(4));
    const QByteArray date = day + ' ' + month + ' ' + fullYear(words.at(2)) + ' ' +
                            words.at(3).rightJustified(5, '0') + ' ' + zone;
    return QDateTime::fromString(QString::fromLatin1(date), Qt::RFC2822Date).toUTC();
}
