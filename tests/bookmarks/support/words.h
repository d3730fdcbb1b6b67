// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// What stands between the blanks of @p text.
inline QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// What stands between the commas of @p text: rows as BookmarkStore::orders() tells them.
inline QStringList rows(const char *text)
{
    return QString::fromLatin1(text).split(QStringLiteral(", "), Qt::SkipEmptyParts);
}
