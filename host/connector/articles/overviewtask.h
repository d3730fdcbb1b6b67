// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "article.h"

#include <halvora/nntptask.h>

#include <QVector>

#include <atomic>

/// How far a newsgroup has been read, from its newest article to older ones. A plain value.
struct NewsgroupPosition {
    static constexpr qint64 atTheTop = -1;

    /// Nothing of @p newsgroup was read yet.
    static NewsgroupPosition atTop(const QString &newsgroup);

    /// Why nothing came of the newsgroup when it was asked for last.
    enum Obstacle {
        NoObstacle,
        Refusal,    ///< the server does not give it
        Unsendable, ///< no server can be asked for such a name
        Loss,       ///< the connection ended before it was read
    };

    QString newsgroup;
    qint64 next = atTheTop;        ///< the highest number that was not asked for yet
    qint64 edge = Article::noDate; ///< the oldest date that came so far
    bool isAtEnd = false;          ///< there is nothing older
    Obstacle obstacle = NoObstacle;
    QString problem; ///< the server's own words to the obstacle; empty when it said nothing
};

/// Asks the news server for the next older articles of some newsgroups.
class OverviewTask final : public NntpTask {
    Q_OBJECT
public:
    /// @p range is how many numbers of each newsgroup are looked at; where there is no article, more are.
    OverviewTask(const QVector<NewsgroupPosition> &positions, int range);

    /// How many articles have come so far. Any thread.
    int count() const noexcept { return m_count.load(std::memory_order_relaxed); }
    /// What came; GUI thread, after a successful end.
    const QVector<Article> &articles() const { return m_articles; }
    /// How far that goes, and what was in the way of the others; GUI thread, after the end.
    const QVector<NewsgroupPosition> &positions() const { return m_positions; }

protected:
    /// Successful when at least one newsgroup could be read. Nothing comes of one that was read in part.
    bool run(NntpSession &session) override;

private:
    bool readOrUndo(NntpSession &session, NewsgroupPosition &position);
    bool read(NntpSession &session, NewsgroupPosition &position);
    bool readRange(NntpSession &session, NewsgroupPosition &position, qint64 first, qint64 last);

    QVector<NewsgroupPosition> m_positions;
    const int m_range;
    std::atomic<int> m_count{0};
    QVector<Article> m_articles;
};
