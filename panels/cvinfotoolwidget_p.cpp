// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "panels/cvinfotoolwidget_p.h"

#include "connector/cvconnectorplugin.h"
#include "plugin/constants.h"

#include <halvora/connector.h>
#include <halvora/core.h>
#include <halvora/statsplugin.h>
#include <halvora/stringformat.h>

#include <QLabel>
#include <QStackedWidget>

namespace {

constexpr int usageInterval = 10'000; // milliseconds

QString bytesText(qint64 bytes)
{
    return StringFormat::byteCount(bytes, StringFormat::ByteFormatDefault, StringFormat::BinaryNotation, -1);
}

} // namespace

CVInfoToolWidgetPrivate::CVInfoToolWidgetPrivate(CVInfoToolWidget *panel, CVConnectorPlugin *connectorPlugin,
                                                 StatsPlugin *statsPlugin)
    : q(panel)
    , connector(connectorPlugin->connector())
    , plugin(connectorPlugin)
    , stats(statsPlugin)
    , usageTimer(panel)
{
    usageTimer.setInterval(usageInterval);
}

QString CVInfoToolWidgetPrivate::userText() const
{
    return CVInfoToolWidget::tr("Logged in as: %1").arg(connector->username());
}

void CVInfoToolWidgetPrivate::retranslate()
{
    q->setWindowTitle(CVInfoToolWidget::tr("Your Account"));
    if (stats) {
        m_todayCaption->setText(CVInfoToolWidget::tr("Today"));
        m_monthCaption->setText(CVInfoToolWidget::tr("This Month"));
        m_statsLink->setText(CVInfoToolWidget::tr("<a href='#stats'>Traffic Stats</a>"));
    }
    m_billingCaption->setText(CVInfoToolWidget::tr("Used bytes (billing cycle):"));
    m_mtdCaption->setText(CVInfoToolWidget::tr("Used bytes (this month):"));
    m_connectionsCaption->setText(CVInfoToolWidget::tr("Max connections:"));
    m_planCaption->setText(CVInfoToolWidget::tr("Plan:"));
    m_controlPanelLink->setText(CVInfoToolWidget::tr("<a href='#cp'>Control Panel</a>"));
    m_user->setText(userText());
    showQuickStats();
}

void CVInfoToolWidgetPrivate::showRecord()
{
    if (!status.isEmpty()) {
        m_pages->setCurrentIndex(AccountPage);
        m_connections->setText(QString::number(status.maxConnections()));
        m_plan->setText(status.planName());
    } else if (status.supported()) {
        m_pages->setCurrentIndex(EmptyPage);
    } else {
        showLoginPage();
    }
}

void CVInfoToolWidgetPrivate::showNoAccount()
{
    status = CVAccountStatus();
    lastLogin = QDateTime();
    for (QLabel *value : {m_billing, m_mtd, m_connections, m_plan})
        value->clear();
    m_pages->setCurrentIndex(EmptyPage);
}

// The row stands in for a control panel of the program's own: it shows only when there is none.
void CVInfoToolWidgetPrivate::showLoginPage()
{
    m_user->setText(userText());
    lastLogin = QDateTime::currentDateTime();
    m_controlPanelRow->setVisible(plugin->core()->url(constants::linkControlPanel).isNull());
    m_pages->setCurrentIndex(LoginPage);
}

void CVInfoToolWidgetPrivate::showUsage()
{
    if (status.isEmpty())
        return;
    showCount(m_billingCaption, m_billing, withLocalTraffic(status.billingBytes()));
    showCount(m_mtdCaption, m_mtd, withLocalTraffic(status.mtdBytes()));
}

qint64 CVInfoToolWidgetPrivate::withLocalTraffic(qint64 bytes) const
{
    return stats ? stats->updatedNntpTrafficDown(bytes, status.usageUpdatedTimestamp()) : bytes;
}

void CVInfoToolWidgetPrivate::showCount(QLabel *caption, QLabel *value, qint64 bytes) const
{
    const bool known = bytes >= 0;
    value->setText(known ? bytesText(bytes) : QString());
    caption->setVisible(known);
    value->setVisible(known);
}

void CVInfoToolWidgetPrivate::showQuickStats()
{
    if (!stats)
        return;
    m_today->setText(bytesText(stats->bytesToday()));
    m_month->setText(bytesText(stats->bytesThisMonth()));
}
