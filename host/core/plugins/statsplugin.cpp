// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/statsplugin.h>

#include <halvora/core.h>
#include <halvora/mainwindow.h>
#include <halvora/storagemanager.h>
#include <halvora/trafficmeter.h>

#include "statsdialog.h"

#include <QDir>

#include <limits>

namespace {

constexpr int PollMs = 1000;
constexpr int FlushMs = 10000;

QString journalFile(const Core &core, const QString &configName)
{
    const QString name = StorageManager::fileName(configName, QStringLiteral("halvora"));
    return QDir(core.storage()->dataDirectory()).filePath(QStringLiteral("traffic-%1.log").arg(name));
}

} // namespace

StatsPlugin::StatsPlugin(Core *core, const QString &configName)
    : m_core(core)
    , m_journal(journalFile(*core, configName))
    , m_seen(core->traffic().nntpDown())
{
    updateFigures();
    connect(&m_pollTimer, &QTimer::timeout, this, &StatsPlugin::poll);
    connect(&m_flushTimer, &QTimer::timeout, this, [this] { m_journal.flush(); });
    m_pollTimer.start(PollMs);
    m_flushTimer.start(FlushMs);
}

StatsPlugin::~StatsPlugin()
{
    delete m_dialog; // it shows the journal, which goes now
    m_journal.add(m_core->traffic().nntpDown() - m_seen);
}

qint64 StatsPlugin::updatedNntpTrafficDown(qint64 bytes, qint64 since) const
{
    if (bytes < 0 || since <= 0)
        return bytes;
    const qint64 more = m_journal.bytesSince(since);
    const qint64 maximum = std::numeric_limits<qint64>::max();
    return bytes > maximum - more ? maximum : bytes + more;
}

void StatsPlugin::clear()
{
    m_seen = m_core->traffic().nntpDown();
    m_journal.clear();
    updateFigures();
}

void StatsPlugin::setClock(const TrafficJournal::Clock &nowMs)
{
    m_journal.setClock(nowMs);
    updateFigures();
}

void StatsPlugin::showStats()
{
    if (!m_dialog) {
        m_dialog = new StatsDialog(m_journal, m_core->mainWindow());
        m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    }
    poll();
    m_dialog->setWindowState(m_dialog->windowState() & ~Qt::WindowMinimized);
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}

void StatsPlugin::poll()
{
    const qint64 count = m_core->traffic().nntpDown();
    const qint64 more = count - m_seen;
    m_seen = count;
    m_journal.add(more);
    if (more > 0 || m_journal.today() != m_date)
        updateFigures();
}

void StatsPlugin::updateFigures()
{
    m_date = m_journal.today();
    const qint64 today = m_journal.bytesBetween(m_date, m_date);
    const QDate first(m_date.year(), m_date.month(), 1);
    const qint64 thisMonth = m_journal.bytesBetween(first, first.addMonths(1).addDays(-1));
    const bool changed = today != m_today || thisMonth != m_thisMonth;
    m_today = today;
    m_thisMonth = thisMonth;
    if (m_dialog)
        m_dialog->refresh();
    if (changed)
        Q_EMIT quickStatsUpdated();
}
