// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "panels/cvinfotoolwidget.h"

#include <QDateTime>
#include <QTimer>

class Connector;
class QLabel;
class QLayout;
class QStackedWidget;

/// The state of the account panel and how it is built.
class CVInfoToolWidgetPrivate {
public:
    enum Page { EmptyPage, LoginPage, AccountPage };

    CVInfoToolWidgetPrivate(CVInfoToolWidget *panel, CVConnectorPlugin *connectorPlugin,
                            StatsPlugin *statsPlugin);
    Q_DISABLE_COPY(CVInfoToolWidgetPrivate)

    void build();
    void retranslate();
    void showRecord();
    void showNoAccount();
    void showUsage();
    void showQuickStats();

    CVInfoToolWidget *const q;
    Connector *const connector;
    CVConnectorPlugin *const plugin;
    StatsPlugin *const stats;
    CVAccountStatus status;
    QTimer usageTimer;
    QDateTime lastLogin;

private:
    QWidget *buildLoginPage();
    QLayout *buildTraffic();
    QLayout *buildLinks();
    QWidget *buildAccountPage();
    void showLoginPage();
    void showCount(QLabel *caption, QLabel *value, qint64 bytes) const;
    qint64 withLocalTraffic(qint64 bytes) const;
    QString userText() const;

    QStackedWidget *m_pages = nullptr;
    // The login page; those of the traffic are null without a statistics plug-in
    QLabel *m_user = nullptr;
    QLabel *m_todayCaption = nullptr;
    QLabel *m_today = nullptr;
    QLabel *m_monthCaption = nullptr;
    QLabel *m_month = nullptr;
    QWidget *m_controlPanelRow = nullptr;
    QLabel *m_controlPanelLink = nullptr;
    QLabel *m_statsLink = nullptr;
    // The account page
    QLabel *m_billingCaption = nullptr;
    QLabel *m_billing = nullptr;
    QLabel *m_mtdCaption = nullptr;
    QLabel *m_mtd = nullptr;
    QLabel *m_connectionsCaption = nullptr;
    QLabel *m_connections = nullptr;
    QLabel *m_planCaption = nullptr;
    QLabel *m_plan = nullptr;
};
