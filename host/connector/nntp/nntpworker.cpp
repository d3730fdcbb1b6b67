// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "nntpworker.h"

#include "brokenpipes.h"

#include <halvora/nntptask.h>

namespace {

NntpFailure failureFor(NntpSession::Trouble trouble)
{
    switch (trouble) {
    case NntpSession::Trouble::Unreachable:
        return NntpFailure::Unreachable;
    case NntpSession::Trouble::Refused:
    case NntpSession::Trouble::TooManyConnections:
        return NntpFailure::Refused;
    case NntpSession::Trouble::Stopped:
        return NntpFailure::ShuttingDown;
    case NntpSession::Trouble::Broken:
    case NntpSession::Trouble::None: // the task made nothing of what came
        break;
    }
    return NntpFailure::Broken;
}

} // namespace

NntpWorker::NntpWorker(Core *core, NntpTaskQueue *queue)
    : m_core(core)
    , m_queue(queue)
{
    setObjectName(QStringLiteral("news server"));
}

void NntpWorker::run()
{
    keepBrokenPipesQuiet();
    NntpSession session(m_core);
    bool goOn = true;
    while (goOn) {
        NntpTaskQueue::Jobs job = m_queue->take(this, session.isOpen());
        goOn = !job.empty() && work(session, job);
        Q_EMIT changed();
    }
    session.quit();
    m_queue->leave(this);
    Q_EMIT changed();
}

/// False when the worker has to leave.
bool NntpWorker::work(NntpSession &session, NntpTaskQueue::Jobs &job)
{
    NntpJob &current = job.front();
    if (session.open(current.account, current.limits)) {
        m_queue->noteConnected(this);
        execute(session, current);
    } else if (session.trouble() == NntpSession::Trouble::TooManyConnections) {
        m_queue->putBack(this, job);
        return false;
    } else {
        current.failure = failureFor(session.trouble());
        current.serverWords = session.lastReply();
    }
    return m_queue->finish(this, job);
}

void NntpWorker::execute(NntpSession &session, NntpJob &job)
{
    if (job.task->run(session))
        return;
    job.failure = failureFor(session.trouble());
    job.serverWords = session.lastReply();
}
