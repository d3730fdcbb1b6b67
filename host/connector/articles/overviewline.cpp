// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "overviewline.h"

#include "headerdate.h"
#include "headertext.h"

#include <QByteArray>
#include <QDateTime>

#include <algorithm>

namespace {

constexpr qint64 largestArticle = qint64(1) << 40;
constexpr int mostDigits = 18; // all such numbers fit

enum Field { Number, Subject, From, Date, MessageId, References, Bytes };

/// The number that @p field is, -1 for anything but digits.
qint64 number(const QByteArray &field)
{
    const bool isNumber =
        !field.isEmpty() && field.size() <= mostDigits &&
        std::all_of(field.begin(), field.end(), [](char c) { return c >= '0' && c <= '9'; });
    return isNumber ? field.toLongLong() : -1;
}

qint64 byteCount(const QByteArray &field)
{
    const qint64 bytes = number(field.trimmed());
    return bytes > 0 && bytes <= largestArticle ? bytes : Article::noSize;
}

qint64 date(const QByteArray &field)
{
    const QDateTime time = headerdate::parse(field);
    return time.isValid() ? time.toSecsSinceEpoch() : Article::noDate;
}

} // namespace

std::optional<Article> overviewline::parse(const char *line, int size, qint64 first, qint64 last)
{
    const QByteArrayList fields = QByteArray::fromRawData(line, size).split('\t');
    Article article;
    article.number = number(fields.at(Number));
    if (article.number < first || article.number > last || article.number < 1)
        return {};
    article.subject = headertext::decode(fields.value(Subject));
    article.poster = headertext::poster(fields.value(From));
    article.date = date(fields.value(Date));
    article.bytes = byteCount(fields.value(Bytes));
    return article;
}
