// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// One of the files that an NZB file lists. A value.
struct NzbEntry {
    static constexpr qint64 noDate = -1;

    QString subject; ///< empty when it has none
    QString poster;
    QStringList newsgroups;
    qint64 posted = noDate; ///< seconds since 1970-01-01 00:00 UTC
    int segments = 0;
    qint64 bytes = 0;        ///< of the segments that tell their size
    bool hasAllSizes = true; ///< otherwise the file has more bytes than that
};
