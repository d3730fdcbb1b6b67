// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "stubbornplugin.h"

#include "testconnectorplugin.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/core.h>
#include <halvora/hloginrequest.h>
#include <halvora/hserver.h>
#include <halvora/pluginmanager.h>
#include <halvora/statsplugin.h>
#include <halvora/trafficmeter.h>

#include <QCoreApplication>
#include <QSettings>
#include <QSharedPointer>
#include <QThread>
#include <QTimer>

namespace {

class StubbornLogin final : public HLoginRequest {
    Q_OBJECT
public:
    using HLoginRequest::HLoginRequest;
    bool isAllowedToSend(bool serverReady, bool) const override { return serverReady; }
    bool prepare() override
    {
        QMetaObject::invokeMethod(qApp, "quit", Qt::QueuedConnection);
        QThread::sleep(600);
        return true;
    }
};

} // namespace

void StubbornPlugin::create(QObject *, Core *core)
{
    createInternal(core, new TestConnectorPlugin(core));
}

void StubbornPlugin::init(Benchmark &)
{
    Core *core = connectorPlugin()->core();
    core->plugin()->registerPlugin(new StatsPlugin(core, connectorPlugin()->configName()));
}

void StubbornPlugin::onApplicationStartFinished()
{
    Connector *connector = connectorPlugin()->connector();
    connector->core()->settings().setValue(QStringLiteral("Stubborn/Started"), true);
    connector->core()->traffic().addNntpDown(12345);
    connector->setAccount(QStringLiteral("demo"), QStringLiteral("pinegate"));
    connector->server()->prependRequestToQueue(QSharedPointer<HRequest>(new StubbornLogin(connector)));
}

#include "stubbornplugin.moc"
