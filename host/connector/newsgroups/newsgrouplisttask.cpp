// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "newsgrouplisttask.h"

#include "newsgrouptablebuilder.h"

#include <halvora/nntpsession.h>

#include <utility>

namespace {

constexpr int listFollows = 215;
constexpr int progressStep = 2000;

/// Whether the server said no to this command only.
bool isRefused(const NntpSession &session)
{
    return session.trouble() == NntpSession::Trouble::Refused && session.isOpen();
}

} // namespace

NewsgroupListTask::NewsgroupListTask(const QString &cacheFile, const QString &server, const QString &user)
    : m_cacheFile(cacheFile)
    , m_server(server)
    , m_user(user)
{
}

newsgroupcache::Contents NewsgroupListTask::take()
{
    return std::exchange(m_contents, {});
}

bool NewsgroupListTask::run(NntpSession &session)
{
    NewsgroupTableBuilder builder;
    m_count.store(0, std::memory_order_relaxed);
    const auto addGroup = [&](const char *line, int length) {
        builder.addGroup(line, length);
        m_count.store(builder.count(), std::memory_order_relaxed);
        if (builder.count() % progressStep == 0)
            tellProgress();
        return !isCancelled();
    };
    const auto addDescription = [&](const char *line, int length) {
        builder.addDescription(line, length);
        return !isCancelled();
    };
    if (!session.lines("LIST ACTIVE", listFollows, addGroup) || isCancelled())
        return false;
    // A server need not know any descriptions, but one that broke off or sent the client away may know some.
    if (!session.lines("LIST NEWSGROUPS", listFollows, addDescription) && !isRefused(session))
        return false;
    if (isCancelled())
        return false;
    m_contents = {builder.take(), QDateTime::currentDateTimeUtc(), m_server, m_user};
    newsgroupcache::write(m_cacheFile, m_contents);
    return true;
}
