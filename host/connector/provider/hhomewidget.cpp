// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "hhomewidget.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/core.h>
#include <halvora/hcontext.h>
#include <halvora/hcontextholder.h>
#include <halvora/hnntpdistributor.h>
#include <halvora/hserver.h>
#include <halvora/mainwindow.h>
#include <halvora/stringformat.h>

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

HHomeWidget::HHomeWidget(ConnectorPlugin *plugin)
    : m_plugin(plugin)
    , m_state(new QLabel(this))
    , m_detail(new QLabel(this))
    , m_button(new QPushButton(this))
{
    setObjectName(QStringLiteral("HomeWidget"));
    build();
    const Connector *connector = plugin->connector();
    connect(connector->server(), &HServer::stateChanged, this, &HHomeWidget::refresh);
    connect(connector->distributor(), &HNntpDistributor::changed, this, &HHomeWidget::refresh);
    if (const HContext *context = HContextHolder::context())
        connect(context, &HContext::changed, this, &HHomeWidget::refresh);
    if (MainWindow *window = plugin->core()->mainWindow())
        connect(m_button, &QPushButton::clicked, window, &MainWindow::loginRequested);
    refresh();
}

void HHomeWidget::build()
{
    auto *banner = new QLabel(this);
    banner->setPixmap(m_plugin->loginPixmap());
    QFont font = m_state->font();
    font.setPointSizeF(font.pointSizeF() * 1.3);
    m_state->setFont(font);
    for (QLabel *label : {m_state, m_detail}) {
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignCenter);
        // A long user name must not make the window as wide.
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }
    m_detail->setWordWrap(true); // between two panels there may be little room

    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(14);
    layout->addStretch(2);
    layout->addWidget(banner, 0, Qt::AlignCenter);
    layout->addSpacing(10);
    layout->addWidget(m_state);
    layout->addWidget(m_detail);
    layout->addWidget(m_button, 0, Qt::AlignCenter);
    layout->addStretch(3);
}

void HHomeWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        refresh();
    QWidget::changeEvent(event);
}

void HHomeWidget::refresh()
{
    m_state->setText(accountText());
    m_detail->setText(detailText());
    m_button->setText(tr("Log In…"));
    const auto state = m_plugin->connector()->server()->connectorState();
    m_button->setVisible(state == HServer::Disconnected || state == HServer::ServiceLost);
}

QString HHomeWidget::accountText() const
{
    switch (m_plugin->connector()->server()->connectorState()) {
    case HServer::Disconnected:
        return m_plugin->offlineText();
    case HServer::Connecting:
        return tr("Logging in…");
    case HServer::Connected:
        return m_plugin->onlineText();
    case HServer::ServiceLost:
        return tr("The account service can not be reached");
    }
    return {};
}

QString HHomeWidget::detailText() const
{
    const Connector *connector = m_plugin->connector();
    const HContext *context = HContextHolder::context();
    if (connector->server()->connectorState() != HServer::Connected || !context ||
        context->lastLogin().isNull())
        return {};
    return tr("News servers: %1  ·  Connections: %2  ·  Since: %3")
        .arg(context->nntpHostCount())
        .arg(connector->distributor()->maxConnections())
        .arg(StringFormat::dateTime(context->lastLogin(), StringFormat::ShortDateTime));
}
