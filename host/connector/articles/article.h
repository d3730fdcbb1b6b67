// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <limits>

/// What the overview of a newsgroup says of one article. A plain value.
struct Article {
    static constexpr qint64 noDate = std::numeric_limits<qint64>::min();
    static constexpr qint64 noSize = -1;

    qint64 number = 0;
    QString newsgroup;
    QString subject;
    QString poster;
    qint64 date = noDate; ///< seconds since the epoch, UTC
    qint64 bytes = noSize;

    /// Whether the subject is that of a file or a part of one, by the customs of those who post files.
    bool isFile() const;
};

Q_DECLARE_TYPEINFO(Article, Q_MOVABLE_TYPE);
