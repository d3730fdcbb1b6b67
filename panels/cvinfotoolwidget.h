// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "requests/cvaccountstatus.h"

#include <halvora/fancydockwidget.h>

#include <memory>

class CVConnectorPlugin;
class CVInfoToolWidgetPrivate;
class StatsPlugin;

/// The panel "Your Account": who is logged in, today's and this month's traffic and, when the account service
/// tells it, the plan with its limit and use. GUI thread.
class CVInfoToolWidget final : public FancyDockWidget {
    Q_OBJECT
public:
    /// @p plugin and @p stats, which may be null, outlive the panel.
    CVInfoToolWidget(QWidget *parent, CVConnectorPlugin *plugin, StatsPlugin *stats);
    ~CVInfoToolWidget() override;

    /// The first, empty page, with nothing kept of the last record.
    void showNoAccount();

public Q_SLOTS:
    void updateAccountStatus(CVAccountStatus status); // clazy:exclude=function-args-by-ref
    void updateUsage();
    void quickStatsUpdated();
    void linkActivated(QString link); // clazy:exclude=function-args-by-ref

protected:
    void changeEvent(QEvent *event) override;

private:
    std::unique_ptr<CVInfoToolWidgetPrivate> d;
};
