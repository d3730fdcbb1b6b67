// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/nzbloader.h>

#include "nzbreadthread.h"

#include <QDeadlineTimer>

namespace {

constexpr qint64 patience = 2000; // milliseconds

} // namespace

NzbLoader::NzbLoader(QObject *parent)
    : QObject(parent)
{
}

// To destroy a thread that runs would end the process, so one whose disk does not answer is left alone.
NzbLoader::~NzbLoader()
{
    cancel();
    const QDeadlineTimer deadline(patience);
    for (NzbReadThread *thread : qAsConst(m_threads)) {
        if (thread->wait(deadline))
            delete thread;
    }
}

void NzbLoader::load(const QString &path)
{
    cancel();
    m_wanted = new NzbReadThread(path);
    m_threads.append(m_wanted);
    connect(m_wanted, &QThread::finished, this, [this, thread = m_wanted] { take(thread); });
    m_wanted->start();
}

void NzbLoader::cancel()
{
    if (m_wanted)
        m_wanted->stop();
    m_wanted = nullptr;
}

void NzbLoader::take(NzbReadThread *thread)
{
    m_threads.removeOne(thread);
    const NzbReader::Result result = thread->take();
    const bool isWanted = thread == m_wanted;
    if (isWanted)
        m_wanted = nullptr;
    delete thread;
    if (!isWanted)
        return;
    if (result.failure.isNull())
        Q_EMIT loaded(result.file);
    else
        Q_EMIT failed(result.failure);
}
