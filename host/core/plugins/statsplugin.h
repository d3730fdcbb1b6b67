// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>
#include <halvora/iplugin.h>
#include <halvora/trafficjournal.h>

#include <QDate>
#include <QObject>
#include <QPointer>
#include <QTimer>

class Core;
class StatsDialog;

/// Counts what came from news servers, day by day, and shows it. It looks at Core::traffic() once a second
/// and keeps the figures in a TrafficJournal. GUI thread.
class HALVORA_CORE_EXPORT StatsPlugin : public QObject, public IPlugin {
    Q_OBJECT
public:
    /// @p core outlives the plug-in. @p configName tells the journals of several connectors apart.
    StatsPlugin(Core *core, const QString &configName);
    /// Writes what is not yet in the journal's file.
    ~StatsPlugin() override;
    Q_DISABLE_COPY(StatsPlugin)

    /// Bytes since midnight, local time.
    qint64 bytesToday() const { return m_today; }
    /// Bytes since the first of the month, local time.
    qint64 bytesThisMonth() const { return m_thisMonth; }
    /// A count that somebody else made at @p since (milliseconds since the epoch, UTC), brought up to date
    /// with what was counted here after it. A negative count means that there is none, and a time of zero or
    /// less that it is not known; both return the count as it is.
    qint64 updatedNntpTrafficDown(qint64 bytes, qint64 since) const;

    /// Forgets what was counted so far.
    void clear();

    /// Takes the time from @p nowMs (milliseconds since the epoch, UTC) instead of from the system.
    void setClock(const TrafficJournal::Clock &nowMs);
    const TrafficJournal &journal() const { return m_journal; }

public Q_SLOTS:
    /// Shows the statistics in a window of their own, always the same one.
    void showStats();
    /// Takes in what was counted since the last call, and the time; a timer calls it every second.
    void poll();

Q_SIGNALS:
    /// bytesToday() or bytesThisMonth() has changed, by traffic or because a new day has begun.
    void quickStatsUpdated();

private:
    void updateFigures();

    Core *m_core;
    TrafficJournal m_journal;
    qint64 m_seen; ///< the meter's count at the last poll
    QDate m_date;  ///< the day to which the two figures belong
    qint64 m_today = 0;
    qint64 m_thisMonth = 0;
    QTimer m_pollTimer;
    QTimer m_flushTimer;
    QPointer<StatsDialog> m_dialog;
};
