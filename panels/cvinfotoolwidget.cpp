// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "panels/cvinfotoolwidget.h"

#include "connector/cvconnectorplugin.h"
#include "panels/cvinfotoolwidget_p.h"

#include <halvora/statsplugin.h>

#include <QEvent>

CVInfoToolWidget::CVInfoToolWidget(QWidget *parent, CVConnectorPlugin *plugin, StatsPlugin *stats)
    : FancyDockWidget(parent)
    , d(std::make_unique<CVInfoToolWidgetPrivate>(this, plugin, stats))
{
    setObjectName(QStringLiteral("InfoToolWidget"));
    setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    d->build();
    if (stats)
        connect(stats, &StatsPlugin::quickStatsUpdated, this, &CVInfoToolWidget::quickStatsUpdated);
    connect(&d->usageTimer, &QTimer::timeout, this, &CVInfoToolWidget::updateUsage);
    d->usageTimer.start();
    d->retranslate();
}

CVInfoToolWidget::~CVInfoToolWidget() = default;

void CVInfoToolWidget::updateAccountStatus(
    CVAccountStatus status) // NOLINT(performance-unnecessary-value-param)
{
    d->status = status;
    d->showRecord();
    updateUsage();
    d->retranslate();
}

void CVInfoToolWidget::showNoAccount()
{
    d->showNoAccount();
    d->retranslate();
}

void CVInfoToolWidget::updateUsage()
{
    d->showUsage();
}

void CVInfoToolWidget::quickStatsUpdated()
{
    d->showQuickStats();
}

void CVInfoToolWidget::linkActivated(QString link) // NOLINT(performance-unnecessary-value-param)
{
    if (link == QLatin1String("#cp"))
        d->plugin->showControlPanel();
    else if (link == QLatin1String("#stats") && d->stats)
        d->stats->showStats();
}

void CVInfoToolWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        d->retranslate();
    FancyDockWidget::changeEvent(event);
}
