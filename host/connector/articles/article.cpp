// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "article.h"

namespace {

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

int skipDigits(const QString &text, int from)
{
    while (from < text.size() && isDigit(text.at(from)))
        ++from;
    return from;
}

/// "(2/17)", the part of a file that was posted in several.
bool hasPartNumber(const QString &subject)
{
    for (int open = subject.indexOf(QLatin1Char('(')); open >= 0;
         open = subject.indexOf(QLatin1Char('('), open + 1)) {
        const int slash = skipDigits(subject, open + 1);
        if (slash == open + 1 || slash >= subject.size() || subject.at(slash) != QLatin1Char('/'))
            continue;
        const int close = skipDigits(subject, slash + 1);
        if (close > slash + 1 && close < subject.size() && subject.at(close) == QLatin1Char(')'))
            return true;
    }
    return false;
}

/// A name with an ending in quotation marks: "picture.jpg".
bool hasQuotedFileName(const QString &subject)
{
    const int open = subject.indexOf(QLatin1Char('"'));
    const int close = open < 0 ? -1 : subject.indexOf(QLatin1Char('"'), open + 1);
    if (close < 0)
        return false;
    const QString name = subject.mid(open + 1, close - open - 1);
    const int ending = name.size() - name.lastIndexOf(QLatin1Char('.')) - 1;
    return name.contains(QLatin1Char('.')) && ending >= 1 && ending <= 5 && !name.endsWith(QLatin1Char(' '));
}

} // namespace

bool Article::isFile() const
{
    if (subject.startsWith(QLatin1String("Re:"), Qt::CaseInsensitive))
        return false;
    return subject.contains(QLatin1String("yEnc"), Qt::CaseInsensitive) || hasPartNumber(subject) ||
           hasQuotedFileName(subject);
}
