// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>
#include <halvora/nzbentry.h>

#include <QMap>
#include <QVector>

/// What an NZB file says. All of its texts are somebody else's: one line each, bounded, to be shown as plain
/// text. A value; any thread.
struct HALVORA_CORE_EXPORT NzbFile {
    /// What the entries come to together.
    struct Totals {
        int segments = 0;
        qint64 bytes = 0;
        bool hasAllSizes = true;
        qint64 firstPosted = NzbEntry::noDate;
        qint64 lastPosted = NzbEntry::noDate;
        QStringList newsgroups; ///< each once, in the order in which they come
    };

    QMap<QString, QString> meta; ///< what its head says, by type
    QVector<NzbEntry> entries;

    /// What it calls itself; empty when it does not.
    QString title() const;
    Totals totals() const;
};
