// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "overviewtask.h"

#include <halvora/newsgroup.h>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QSharedPointer>

class Connector;
class ConnectorPlugin;
class HNntpDistributor;

/// Brings the articles of one newsgroup or of several together, the newest first and older ones piece by
/// piece. GUI thread.
class ArticleList final : public QObject {
    Q_OBJECT
public:
    enum State {
        Idle,    ///< what came is there
        Loading, ///< more is on its way
        Failed,  ///< what was wanted last could not be had
    };

    /// @p plugin outlives the list.
    ArticleList(ConnectorPlugin *plugin, const QList<Newsgroup> &newsgroups, QObject *parent = nullptr);
    ~ArticleList() override;

    /// Begins anew with the newest articles.
    void reload();
    /// Brings older ones, unless something is on its way or there are none.
    void loadMore();
    /// Does again what failed; newsgroups that could not be had are asked for again.
    void tryAgain();

    State state() const { return m_state; }
    /// Whether the server may have older articles.
    bool hasMore() const;
    /// How many articles of the present piece have come so far.
    int progress() const;
    /// What is to be told a person: why loading failed or pauses; empty for nothing.
    QString message() const { return m_message; }
    /// Which newsgroups could not be had, and why.
    QStringList problems() const { return describe(m_positions); }

Q_SIGNALS:
    /// The newest articles came; those from before are no longer good.
    void restarted(const QVector<Article> &articles);
    /// Older articles came.
    void extended(const QVector<Article> &articles);
    /// State, progress or message are others.
    void stateChanged();

private:
    void start(QVector<NewsgroupPosition> positions);
    QVector<NewsgroupPosition> duePositions(bool isWithRefused);
    void finish();
    QString failureText(const OverviewTask &task) const;
    static QStringList describe(const QVector<NewsgroupPosition> &positions);
    NewsgroupPosition *findPosition(const QString &newsgroup);
    int pieceSize() const;
    void setState(State state, const QString &message = QString());

    Connector *const m_connector;
    const QPointer<HNntpDistributor> m_distributor;
    QVector<NewsgroupPosition> m_positions;
    State m_state = Idle;
    QString m_message;
    bool m_isAfresh = true; ///< the present task began with the newest articles
    int m_attempts = 0;     ///< at newsgroups that could not be had
    QSharedPointer<OverviewTask> m_task;
};
