// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "recordingrequest.h"

#include "journal.h"

#include <QXmlStreamWriter>

#include <atomic>

namespace {

std::atomic<bool> destroyedElsewhere{false};

}

RecordingRequest::RecordingRequest(Connector *connector, const QString &name, Journal *journal)
    : HRequest(connector)
    , m_name(name)
    , m_journal(journal)
{
}

RecordingRequest::~RecordingRequest()
{
    if (QThread::currentThread() != thread())
        destroyedElsewhere = true;
}

QSharedPointer<RecordingRequest> RecordingRequest::eager(Connector *connector, const QString &name,
                                                         Journal *journal)
{
    QSharedPointer<RecordingRequest> request(new RecordingRequest(connector, name, journal));
    request->onAllowed = [](bool serverReady, bool) { return serverReady; };
    return request;
}

bool RecordingRequest::wasDestroyedElsewhere()
{
    return destroyedElsewhere.exchange(false);
}

bool RecordingRequest::isAllowedToSend(bool serverReady, bool connected) const
{
    return onAllowed ? onAllowed(serverReady, connected) : HRequest::isAllowedToSend(serverReady, connected);
}

bool RecordingRequest::prepare()
{
    m_journal->add(m_name, QStringLiteral("prepare"));
    return !onPrepare || onPrepare();
}

void RecordingRequest::buildRequestInternal(QXmlStreamWriter &writer)
{
    m_journal->add(m_name, QStringLiteral("build"));
    if (onBuild)
        onBuild();
    writer.writeEmptyElement(QStringLiteral("status"));
}

void RecordingRequest::buildResponseInternal(const QDomElement &reply)
{
    m_reply = reply;
    m_journal->add(m_name, QStringLiteral("parse"));
    if (onParse)
        onParse();
}

void RecordingRequest::deliver()
{
    ++m_deliveries;
    m_journal->add(m_name, QStringLiteral("deliver"));
    HRequest::deliver();
}
