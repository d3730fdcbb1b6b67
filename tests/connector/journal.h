// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QThread>
#include <QVector>

#include <condition_variable>
#include <mutex>

/// What several requests did, in order, and on which thread. Any thread.
class Journal {
public:
    void add(const QString &name, const QString &operation);

    /// "name operation" for each entry; of one operation only when it is given.
    QStringList lines(const QString &operation = QString()) const;
    /// The threads on which @p operation ran.
    QVector<Qt::HANDLE> threads(const QString &operation) const;
    int count(const QString &line) const { return lines().count(line); }
    /// Blocks without an event loop until there is an entry @p line; false after @p milliseconds.
    bool waitFor(const QString &line, int milliseconds = 30'000);

private:
    struct Entry {
        QString name;
        QString operation;
        Qt::HANDLE thread;
    };

    mutable std::mutex m_mutex;
    std::condition_variable m_added;
    QVector<Entry> m_entries;
};
