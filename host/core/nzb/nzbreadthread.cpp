// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "nzbreadthread.h"

#include <utility>

NzbReadThread::NzbReadThread(const QString &path)
    : m_path(path)
{
    setObjectName(QStringLiteral("NZB file"));
}

// What nobody took goes under the mutex too: the thread that wrote it has ended, but not for everybody to
// see.
NzbReadThread::~NzbReadThread()
{
    take();
}

NzbReader::Result NzbReadThread::take()
{
    wait();
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_result, {});
}

void NzbReadThread::run()
{
    NzbReader::Result result = NzbReader::readFile(m_path, &m_stop);
    const std::lock_guard lock(m_mutex);
    m_result = std::move(result);
}
