// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "articlelist.h"

#include "newsgroups/newsfailuretext.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/hnntpdistributor.h>
#include <halvora/hserver.h>

#include <algorithm>

namespace {

constexpr int largestPiece = 500; // numbers of one newsgroup
constexpr int smallestPiece = 50;
constexpr int allTogether = 2000;

/// Whether older articles of @p one are due before those of @p other: the list is as complete as the
/// newsgroup that was read least far back.
bool isDueBefore(const NewsgroupPosition &one, const NewsgroupPosition &other)
{
    if (one.isAtEnd != other.isAtEnd)
        return other.isAtEnd;
    const bool isUnknown = one.edge == Article::noDate;
    if (isUnknown != (other.edge == Article::noDate))
        return isUnknown;
    return one.edge > other.edge;
}

} // namespace

ArticleList::ArticleList(ConnectorPlugin *plugin, const QList<Newsgroup> &newsgroups, QObject *parent)
    : QObject(parent)
    , m_connector(plugin->connector())
    , m_distributor(m_connector->distributor())
{
    for (const Newsgroup &newsgroup : newsgroups) {
        if (!findPosition(newsgroup.name()))
            m_positions.append(NewsgroupPosition::atTop(newsgroup.name()));
    }
    // Whoever opened a newsgroup before logging in wants to see it afterwards.
    connect(m_connector->server(), &HServer::stateChanged, this, [this] {
        if (m_state == Failed && m_connector->isLoginAvailable())
            tryAgain();
    });
}

ArticleList::~ArticleList()
{
    if (m_task && m_distributor)
        m_distributor->cancel(m_task);
}

NewsgroupPosition *ArticleList::findPosition(const QString &newsgroup)
{
    const auto isIt = [&newsgroup](const NewsgroupPosition &position) {
        return position.newsgroup == newsgroup;
    };
    const auto found = std::find_if(m_positions.begin(), m_positions.end(), isIt);
    return found != m_positions.end() ? &*found : nullptr;
}

int ArticleList::pieceSize() const
{
    return qBound(smallestPiece, allTogether / qMax(m_positions.size(), 1), largestPiece);
}

bool ArticleList::hasMore() const
{
    return std::any_of(m_positions.cbegin(), m_positions.cend(), [](const NewsgroupPosition &position) {
        return !position.isAtEnd && position.next != NewsgroupPosition::atTheTop;
    });
}

int ArticleList::progress() const
{
    return m_task ? m_task->count() : 0;
}

QStringList ArticleList::problems() const
{
    QStringList lines;
    for (const NewsgroupPosition &position : m_positions) {
        if (!position.problem.isEmpty())
            lines.append(position.newsgroup + QLatin1String(": ") + position.problem);
    }
    return lines;
}

void ArticleList::reload()
{
    if (m_task && m_distributor)
        m_distributor->cancel(m_task);
    QVector<NewsgroupPosition> positions;
    for (const NewsgroupPosition &known : qAsConst(m_positions))
        positions.append(NewsgroupPosition::atTop(known.newsgroup));
    m_isAfresh = true;
    start(positions);
}

void ArticleList::loadMore()
{
    if (m_state == Loading || !hasMore())
        return;
    m_isAfresh = false;
    start({*std::min_element(m_positions.cbegin(), m_positions.cend(), isDueBefore)});
}

void ArticleList::tryAgain()
{
    if (m_isAfresh)
        reload();
    else
        loadMore();
}

void ArticleList::start(const QVector<NewsgroupPosition> &positions)
{
    if (!m_distributor)
        return;
    m_task = QSharedPointer<OverviewTask>::create(positions, pieceSize());
    connect(m_task.data(), &NntpTask::progressed, this, [this] { setState(Loading); });
    connect(m_task.data(), &NntpTask::delayed, this,
            [this](int seconds) { setState(Loading, NewsFailureText::delay(seconds)); });
    connect(m_task.data(), &NntpTask::finished, this, &ArticleList::finish);
    setState(Loading);
    m_distributor->start(m_task);
}

void ArticleList::finish()
{
    const QSharedPointer<OverviewTask> task = m_task;
    m_task.reset();
    if (!task->isSuccessful()) {
        setState(Failed, NewsFailureText::sentence(task->failure(), task->serverWords()));
        return;
    }
    m_state = Idle;
    m_message.clear();
    for (const NewsgroupPosition &read : task->positions())
        *findPosition(read.newsgroup) = read;
    if (m_isAfresh)
        Q_EMIT restarted(task->articles());
    else
        Q_EMIT extended(task->articles());
    Q_EMIT stateChanged();
}

void ArticleList::setState(State state, const QString &message)
{
    m_state = state;
    m_message = message;
    Q_EMIT stateChanged();
}
