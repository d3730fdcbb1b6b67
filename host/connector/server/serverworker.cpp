// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "serverworker.h"

#include "envelope.h"
#include "messages/messagereader.h"
#include "nntp/brokenpipes.h"

#include <halvora/core.h>

#include <QDomElement>

ServerWorker::ServerWorker(Core *core, RequestQueue *queue)
    : m_core(core)
    , m_queue(queue)
{
    setObjectName(QStringLiteral("account service"));
}

void ServerWorker::interrupt(quint64 turn, RequestFailure::Kind why)
{
    m_queue->interrupt(turn, why, [this] { stop(); });
}

void ServerWorker::abandon(WhichRequests which, RequestFailure::Kind why)
{
    m_queue->abandon(which, why, [this] { stop(); });
}

void ServerWorker::stop()
{
    requestInterruption();
    m_client.wake();
}

void ServerWorker::run()
{
    keepBrokenPipesQuiet();
    bool goOn = true;
    while (goOn) {
        RequestQueue::Jobs job = m_queue->take();
        if (job.empty())
            return;
        Q_EMIT changed();
        goOn = work(job);
        Q_EMIT changed();
    }
}

bool ServerWorker::work(RequestQueue::Jobs &job)
{
    ServerJob &current = job.front();
    if (!current.request->isAllowedToSend(current.situation.ready, current.situation.connected))
        return m_queue->putBack(job);
    current.failure = exchange(current);
    return m_queue->finish(job);
}

RequestFailure ServerWorker::exchange(ServerJob &job)
{
    using Kind = RequestFailure::Kind;
    m_core->setNewsServerReply(QString());
    if (!job.request->prepare())
        return {Kind::CredentialsTest, m_core->newsServerReply()};

    QByteArray document;
    RequestFailure failure = Envelope::write(*job.request, job.situation.session, document);
    if (!failure.isNull())
        return failure;
    const HServerAddress &address = job.situation.address;
    if (!address.isSecure())
        return Kind::NotTrusted;

    QByteArray reply;
    failure = m_client.post({address.host(), address.port(), m_core->authorityFile()}, document, job.deadline,
                            reply);
    if (!failure.isNull())
        return failure;

    QDomElement element;
    failure = Envelope::read(reply, job.reply, element);
    reply.clear(); // the tree has it all, and what a request makes of it takes memory of its own
    job.messages = MessageReader::read(job.reply);
    if (failure.isNull())
        job.request->buildResponseInternal(element);
    return failure;
}
