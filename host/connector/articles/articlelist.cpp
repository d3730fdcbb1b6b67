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
        const bool isBegun = position.next != NewsgroupPosition::atTheTop;
        return !position.isAtEnd && (isBegun || position.obstacle == NewsgroupPosition::Loss);
    });
}

int ArticleList::progress() const
{
    return m_task ? m_task->count() : 0;
}

// The reason before the names where there may be many names or long ones.
QStringList ArticleList::describe(const QVector<NewsgroupPosition> &positions)
{
    QStringList lines;
    QStringList lost;
    QString words;
    for (const NewsgroupPosition &position : positions) {
        if (position.obstacle == NewsgroupPosition::Refusal) {
            lines.append(position.newsgroup + QLatin1String(": ") + position.problem);
        } else if (position.obstacle == NewsgroupPosition::Unsendable) {
            lines.append(
                tr("The name has blanks or is too long to be asked for: %1").arg(position.newsgroup));
        } else if (position.obstacle == NewsgroupPosition::Loss) {
            lost.append(position.newsgroup);
            words = position.problem;
        }
    }
    const QString names = lost.join(QLatin1String(", "));
    if (!lost.isEmpty() && words.isEmpty())
        lines.append(tr("Not loaded because the connection broke: %1").arg(names));
    else if (!lost.isEmpty())
        lines.append(tr("Not loaded because the news server said “%1”: %2").arg(words, names));
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
    start(duePositions(false));
}

void ArticleList::tryAgain()
{
    const bool isRefreshed = m_isAfresh && m_state == Failed;
    const bool hasObstacle =
        std::any_of(m_positions.cbegin(), m_positions.cend(), [](const NewsgroupPosition &position) {
            return position.obstacle == NewsgroupPosition::Loss ||
                   position.obstacle == NewsgroupPosition::Refusal;
        });
    if (m_state == Loading)
        return;
    if (isRefreshed || !(hasObstacle || hasMore())) {
        reload();
    } else {
        m_isAfresh = false;
        start(duePositions(true));
    }
}

/// The newsgroup whose older articles are due, so that one that never can be had is not in the way of the
/// others, and those that could not be had. Each time another of these is the first, because one may break
/// the connection for all that follow.
QVector<NewsgroupPosition> ArticleList::duePositions(bool isWithRefused)
{
    const NewsgroupPosition *due = nullptr;
    QVector<NewsgroupPosition> positions;
    for (const NewsgroupPosition &position : qAsConst(m_positions)) {
        if (position.obstacle == NewsgroupPosition::Loss ||
            (isWithRefused && position.obstacle == NewsgroupPosition::Refusal))
            positions.append(position);
        else if (!position.isAtEnd && (!due || isDueBefore(position, *due)))
            due = &position;
    }
    if (!positions.isEmpty()) {
        ++m_attempts;
        std::rotate(positions.begin(), positions.begin() + m_attempts % positions.size(), positions.end());
    }
    if (due)
        positions.prepend(*due);
    return positions;
}

void ArticleList::start(QVector<NewsgroupPosition> positions)
{
    if (!m_distributor)
        return;
    for (NewsgroupPosition &position : positions) {
        position.isAtEnd = position.isAtEnd && position.obstacle == NewsgroupPosition::NoObstacle;
        position.obstacle = NewsgroupPosition::NoObstacle;
        position.problem.clear();
    }
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
        setState(Failed, failureText(*task));
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

/// Names the newsgroups that were asked for, unless there is one thing to say of all the page's.
QString ArticleList::failureText(const OverviewTask &task) const
{
    const QVector<NewsgroupPosition> &asked = task.positions();
    const auto isLikeTheFirst = [&asked](const NewsgroupPosition &position) {
        return position.obstacle == asked.constFirst().obstacle &&
               position.obstacle != NewsgroupPosition::Unsendable;
    };
    const bool isAll = asked.size() == m_positions.size();
    const bool isOneThing = isAll && std::all_of(asked.cbegin(), asked.cend(), isLikeTheFirst);
    const bool isServers = task.failure() == NntpFailure::Refused || task.failure() == NntpFailure::Broken;
    const QStringList lines = isServers && !isOneThing ? describe(asked) : QStringList();
    if (!lines.isEmpty())
        return lines.join(QLatin1String("; "));
    QString sentence = NewsFailureText::sentence(task.failure(), task.serverWords());
    if (isAll)
        return sentence;
    QStringList names;
    for (const NewsgroupPosition &position : asked)
        names.append(position.newsgroup);
    return tr("%1 (not loaded: %2)").arg(sentence, names.join(QLatin1String(", ")));
}

void ArticleList::setState(State state, const QString &message)
{
    m_state = state;
    m_message = message;
    Q_EMIT stateChanged();
}
