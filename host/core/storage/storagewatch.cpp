// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "storagewatch.h"

#include <QFile>

namespace {

constexpr unsigned long longestWait = 2000; // milliseconds

} // namespace

StorageWatch::StorageWatch()
{
    setObjectName(QStringLiteral("storage watch"));
}

StorageWatch::~StorageWatch() = default;

void StorageWatch::watch()
{
    start(); // does nothing while it runs
}

void StorageWatch::add(const QString &file)
{
    {
        const std::lock_guard lock(m_mutex);
        m_files.push_back(QFile::encodeName(file).toStdString());
    }
    checkNow();
}

void StorageWatch::setInterval(std::chrono::milliseconds interval)
{
    const std::lock_guard lock(m_mutex);
    m_interval = interval;
}

void StorageWatch::checkNow()
{
    {
        const std::lock_guard lock(m_mutex);
        m_asked = true;
        m_wake.notify_all();
    }
    watch();
}

quint64 StorageWatch::countFailure()
{
    const std::lock_guard lock(m_mutex);
    return ++m_failures;
}

bool StorageWatch::stop()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
        m_wake.notify_all();
    }
    if (!wait(longestWait))
        return false;
    const std::lock_guard lock(m_mutex); // what the thread did last is seen by whoever destroys the watch
    return true;
}

std::optional<StorageWatch::Finding> StorageWatch::take()
{
    const std::lock_guard lock(m_mutex);
    std::optional<Finding> finding = std::move(m_finding);
    m_finding.reset();
    return finding;
}

void StorageWatch::run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_wake.wait_for(lock, m_interval, [this] { return m_asked || m_stopping; });
        if (m_stopping)
            return;
        m_asked = false;
        const std::vector<std::string> files = m_files;
        const quint64 failures = m_failures;
        lock.unlock();
        Finding finding = look(files, failures);
        lock.lock();
        m_finding = std::move(finding);
        lock.unlock();
        Q_EMIT checked();
        lock.lock();
    }
}

StorageWatch::Finding StorageWatch::look(const std::vector<std::string> &files, quint64 failures)
{
    for (const std::string &file : files) {
        const WriteCheck::Problem problem = WriteCheck::look(file, m_seen[file]);
        if (problem != WriteCheck::Problem::None)
            return {problem, file, failures};
    }
    return {WriteCheck::Problem::None, {}, failures};
}
