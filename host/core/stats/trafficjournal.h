// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QDate>
#include <QString>
#include <QVector>

#include <functional>

/// What was downloaded when, in memory and in a text file of one line "milliseconds bytes" for each entry.
/// Times are milliseconds since the epoch, UTC; days and months are local ones. Counts add up to at most the
/// largest qint64. A file that cannot be read or written costs the figures across restarts, nothing else. One
/// thread.
class HALVORA_CORE_EXPORT TrafficJournal {
public:
    using Clock = std::function<qint64()>;

    struct Entry {
        qint64 time;
        qint64 bytes;
    };
    struct Period {
        QDate first; ///< the first day of the period
        qint64 bytes;
    };

    /// Reads @p file, leaving damaged lines out. Entries older than 62 days become one for each day, in the
    /// file too.
    explicit TrafficJournal(const QString &file, const Clock &nowMs = Clock());
    /// Writes what is not yet in the file.
    ~TrafficJournal();
    Q_DISABLE_COPY(TrafficJournal)

    /// Takes the time from @p nowMs instead of from the system; an empty function gives it back.
    void setClock(const Clock &nowMs);
    QDate today() const;

    /// Counts @p bytes now; a number below one is none.
    void add(qint64 bytes);
    /// Appends what was added since the last call. False when the file took nothing of it; it is then tried
    /// again with the next call.
    bool flush();
    /// Forgets every entry, in the file too.
    void clear();

    /// The bytes counted after @p time.
    qint64 bytesSince(qint64 time) const;
    /// The bytes of the days from @p first to @p last, both included.
    qint64 bytesBetween(const QDate &first, const QDate &last) const;
    qint64 totalBytes() const;
    /// The last @p count days or months, the earliest first; the last one is the present one.
    QVector<Period> lastDays(int count) const;
    QVector<Period> lastMonths(int count) const;

private:
    void load();
    void compact();
    void insert(const Entry &entry);
    qint64 sum(qint64 from, qint64 to) const;

    QString m_file;
    Clock m_nowMs;
    QVector<Entry> m_entries; ///< by time
    QVector<Entry> m_unwritten;
    bool m_lineIsOpen = false; ///< the file's last line has no end, so that an entry must not follow in it
};
