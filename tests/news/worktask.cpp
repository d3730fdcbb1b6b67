// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "worktask.h"

#include <halvora/nntpsession.h>

#include <atomic>
#include <utility>

namespace {

std::atomic<QThread *> endThread{nullptr};

} // namespace

WorkTask::WorkTask(Work work)
    : m_work(std::move(work))
{
}

WorkTask::~WorkTask()
{
    endThread = QThread::currentThread();
}

QSharedPointer<WorkTask> WorkTask::sending(const QByteArray &command)
{
    return doing([command](NntpSession &session, WorkTask &) {
        return session.lines(command, 215, [](const char *, int) { return true; });
    });
}

QSharedPointer<WorkTask> WorkTask::doing(const Work &work)
{
    return QSharedPointer<WorkTask>(new WorkTask(work));
}

QThread *WorkTask::lastEnd()
{
    return endThread;
}

bool WorkTask::run(NntpSession &session)
{
    return m_work(session, *this);
}
