// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "worktask.h"

#include <halvora/nntpsession.h>

#include <QThread>

#include <atomic>
#include <utility>

namespace {

std::atomic<int> endsElsewhere{0};

} // namespace

WorkTask::WorkTask(Work work)
    : m_work(std::move(work))
{
}

WorkTask::~WorkTask()
{
    if (QThread::currentThread() != thread())
        ++endsElsewhere;
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

int WorkTask::endedElsewhere()
{
    return endsElsewhere;
}

bool WorkTask::run(NntpSession &session)
{
    return m_work(session, *this);
}
