// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "overviewtask.h"

#include "overviewline.h"

#include <halvora/nntpsession.h>

#include <QSet>

#include <algorithm>

namespace {

constexpr int overviewFollows = 224;
constexpr int progressStep = 100;
constexpr int mostEmptyRanges = 8;
constexpr int widestRange = 16000;

bool isRefused(const NntpSession &session)
{
    return session.trouble() == NntpSession::Trouble::Refused && session.isOpen();
}

/// Whether the reply says that there is nothing, and not that something is wrong (RFC 3977 section 8.3.1).
bool saysNothingThere(const QString &reply)
{
    return reply.startsWith(QLatin1String("423")) || reply.startsWith(QLatin1String("420"));
}

bool saysNoneSelected(const QString &reply)
{
    return reply.startsWith(QLatin1String("412"));
}

bool saysUnknownCommand(const QString &reply)
{
    return reply.startsWith(QLatin1String("500")) || reply.startsWith(QLatin1String("503"));
}

bool askOverview(NntpSession &session, const QByteArray &range, const NntpSession::LineSink &sink)
{
    if (session.lines("OVER " + range, overviewFollows, sink))
        return true;
    // What servers said before there was a standard for it.
    return isRefused(session) && saysUnknownCommand(session.lastReply()) &&
           session.lines("XOVER " + range, overviewFollows, sink);
}

/// Says what was in the way of @p position; the session has just failed with it.
void noteObstacle(NewsgroupPosition &position, const NntpSession &session)
{
    const bool hasWords = session.trouble() == NntpSession::Trouble::Refused;
    position.problem = hasWords ? session.lastReply() : QString();
    if (!isRefused(session)) {
        position.obstacle = NewsgroupPosition::Loss;
        return;
    }
    // A server refuses in words; without any it was not asked.
    position.obstacle =
        position.problem.isEmpty() ? NewsgroupPosition::Unsendable : NewsgroupPosition::Refusal;
    position.isAtEnd = true;
}

} // namespace

NewsgroupPosition NewsgroupPosition::atTop(const QString &newsgroup)
{
    NewsgroupPosition position;
    position.newsgroup = newsgroup;
    return position;
}

OverviewTask::OverviewTask(const QVector<NewsgroupPosition> &positions, int range)
    : m_positions(positions)
    , m_range(range)
{
}

bool OverviewTask::run(NntpSession &session)
{
    m_count.store(0, std::memory_order_relaxed);
    m_articles.clear();
    bool hasRead = m_positions.isEmpty();
    bool isLost = false;
    for (NewsgroupPosition &position : m_positions) {
        if (!isLost && readOrUndo(session, position)) {
            hasRead = true;
            continue;
        }
        if (isCancelled() || session.trouble() == NntpSession::Trouble::Stopped)
            return false;
        noteObstacle(position, session);
        isLost = position.obstacle == NewsgroupPosition::Loss;
    }
    return hasRead;
}

bool OverviewTask::readOrUndo(NntpSession &session, NewsgroupPosition &position)
{
    const NewsgroupPosition before = position;
    const int count = m_articles.size();
    if (!isCancelled() && read(session, position))
        return true;
    position = before;
    m_articles.resize(count);
    m_count.store(count, std::memory_order_relaxed);
    return false;
}

bool OverviewTask::read(NntpSession &session, NewsgroupPosition &position)
{
    const std::optional<NntpGroup> group = session.group(position.newsgroup.toUtf8());
    if (!group)
        return false;
    if (position.next == NewsgroupPosition::atTheTop)
        position.next = group->isEmpty() ? 0 : group->last;
    const qint64 lowest = qMax(group->first, qint64(1));
    const int before = m_articles.size();
    qint64 width = m_range;
    // Old articles go, so that a stretch of numbers may be empty.
    for (int attempt = 0; attempt < mostEmptyRanges && m_articles.size() == before; ++attempt) {
        if (position.next < lowest)
            break;
        const qint64 first = position.next - lowest < width ? lowest : position.next - width + 1;
        if (!readRange(session, position, first, position.next))
            return false;
        position.next = first - 1;
        width = qMin(width * 2, qint64(widestRange));
    }
    position.isAtEnd = position.next < lowest;
    return true;
}

bool OverviewTask::readRange(NntpSession &session, NewsgroupPosition &position, qint64 first, qint64 last)
{
    QSet<qint64> seen;
    const auto add = [&](const char *line, int length) {
        std::optional<Article> article = overviewline::parse(line, length, first, last);
        if (!article || seen.contains(article->number))
            return !isCancelled();
        seen.insert(article->number);
        article->newsgroup = position.newsgroup;
        if (article->date != Article::noDate &&
            (position.edge == Article::noDate || article->date < position.edge))
            position.edge = article->date;
        m_articles.append(*article);
        m_count.store(m_articles.size(), std::memory_order_relaxed);
        if (m_articles.size() % progressStep == 0)
            tellProgress();
        return !isCancelled();
    };
    const QByteArray range = QByteArray::number(first) + '-' + QByteArray::number(last);
    bool hasCome = askOverview(session, range, add);
    // A login in between may have made the server forget what was selected.
    if (!hasCome && isRefused(session) && saysNoneSelected(session.lastReply()) &&
        session.group(position.newsgroup.toUtf8()))
        hasCome = askOverview(session, range, add);
    if (hasCome)
        return !isCancelled();
    return isRefused(session) && saysNothingThere(session.lastReply());
}
