// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "journal.h"

void Journal::add(const QString &name, const QString &operation)
{
    {
        const std::lock_guard lock(m_mutex);
        m_entries.append({name, operation, QThread::currentThreadId()});
    }
    m_added.notify_all();
}

QStringList Journal::lines(const QString &operation) const
{
    const std::lock_guard lock(m_mutex);
    QStringList result;
    for (const Entry &entry : m_entries) {
        if (operation.isEmpty() || entry.operation == operation)
            result.append(entry.name + QLatin1Char(' ') + entry.operation);
    }
    return result;
}

QVector<Qt::HANDLE> Journal::threads(const QString &operation) const
{
    const std::lock_guard lock(m_mutex);
    QVector<Qt::HANDLE> result;
    for (const Entry &entry : m_entries) {
        if (entry.operation == operation)
            result.append(entry.thread);
    }
    return result;
}

bool Journal::waitFor(const QString &line, int milliseconds)
{
    std::unique_lock lock(m_mutex);
    return m_added.wait_for(lock, std::chrono::milliseconds(milliseconds), [this, &line] {
        for (const Entry &entry : m_entries) {
            if (entry.name + QLatin1Char(' ') + entry.operation == line)
                return true;
        }
        return false;
    });
}
