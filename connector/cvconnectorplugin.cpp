// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "connector/cvconnectorplugin.h"

#include "bookmarks/cvbookmarkmanager.h"
#include "bookmarks/cvbookmarkprovider.h"
#include "bookmarks/cvbookmarkstoolwidget.h"
#include "panels/cvinfotoolwidget.h"
#include "panels/cvmessagestoolwidget.h"
#include "plugin/constants.h"
#include "requests/cvcontext.h"
#include "requests/cvloginrequest.h"
#include "requests/cvstatusrequest.h"

#include <halvora/connector.h>
#include <halvora/core.h>
#include <halvora/haboutdialog.h>
#include <halvora/hautosearchservice.h>
#include <halvora/hjobresulthandler.h>
#include <halvora/hnntpdistributor.h>
#include <halvora/hserver.h>
#include <halvora/hserveraddressrotator.h>
#include <halvora/mainwindow.h>
#include <halvora/pluginmanager.h>
#include <halvora/privatedataregistry.h>
#include <halvora/statsplugin.h>

#include <QAction>
#include <QTimer>

namespace {

constexpr int servicePort = 5598;
constexpr int statusInterval = 600'000; // milliseconds

} // namespace

CVConnectorPlugin::CVConnectorPlugin(Core *core)
    : ConnectorPlugin(core)
    , m_jobResultHandler(new HJobResultHandler(connector(), this))
{
    // NOLINTNEXTLINE(clang-analyzer-optin.cplusplus.VirtualCall): the addresses wanted are this class's own
    setAddressRotator(new HServerAddressRotator(configName(), serverAddresses()));

    m_statusTimer = new QTimer(this);
    connect(m_statusTimer, &QTimer::timeout, this, &CVConnectorPlugin::refreshStatus);
    m_statusTimer->start(statusInterval);

    connect(connector(), &Connector::accountLeft, this, &CVConnectorPlugin::forgetAccount);

    m_aboutAction = new QAction(this);
    m_aboutAction->setMenuRole(QAction::AboutRole);
    connect(m_aboutAction, &QAction::triggered, this, &CVConnectorPlugin::showAboutDialog);
}

// A request may still be delivered while the base goes; it must not find half of this object.
CVConnectorPlugin::~CVConnectorPlugin()
{
    for (HRequest *request : {m_loginReference.data(), m_statusReference.data()}) {
        if (request)
            request->disconnect(this);
    }
}

void CVConnectorPlugin::init(Benchmark &benchmark)
{
    ConnectorPlugin::init(benchmark);
    m_bookmarkManager = new CVBookmarkManager(this);
    m_bookmarkManager->setParent(this);
    core()->plugin()->setBookmarkProvider(m_bookmarkManager->provider());
    core()->privateData()->registerPrivateData(m_bookmarkManager);
    setErrorReportVisible(true);
}

void CVConnectorPlugin::polish(MainWindow *window)
{
    ConnectorPlugin::polish(window);
    m_bookmarksPanel = new CVBookmarksToolWidget(m_bookmarkManager, this, window);
    window->addToolWidget(Qt::LeftDockWidgetArea, m_bookmarksPanel);
    m_messagesPanel = new CVMessagesToolWidget(connector(), window);
    window->addToolWidget(Qt::BottomDockWidgetArea, m_messagesPanel);
    m_infoPanel = new CVInfoToolWidget(window, this, findStatsPlugin());
    window->addToolWidget(Qt::BottomDockWidgetArea, m_infoPanel);
}

StatsPlugin *CVConnectorPlugin::findStatsPlugin() const
{
    const QList<IPlugin *> plugins = core()->plugin()->plugins();
    for (IPlugin *plugin : plugins) {
        if (auto *stats = dynamic_cast<StatsPlugin *>(plugin))
            return stats;
    }
    return nullptr;
}

// The constructor asks too, and then it is this class's own flag that counts.
// NOLINTBEGIN(clang-analyzer-optin.cplusplus.VirtualCall)
QList<HServerAddress> CVConnectorPlugin::serverAddresses() const
{
    QList<HServerAddress> addresses;
    addresses.append(HServerAddress(constants::primaryServiceHost, servicePort, addressFlag(), 0));
    for (const QString &host : {constants::secondaryServiceHost, constants::tertiaryServiceHost}) {
        if (!host.isEmpty())
            addresses.append(HServerAddress(host, servicePort, addressFlag(), 0));
    }
    return addresses;
}
// NOLINTEND(clang-analyzer-optin.cplusplus.VirtualCall)

void CVConnectorPlugin::startLogin()
{
    if (m_loginRequest)
        return;
    const QSharedPointer<CVLoginRequest> request(new CVLoginRequest(connector()));
    m_loginRequest = request.data();
    m_loginReference = request;
    connect(m_loginRequest, &HRequest::requestFinished, this, &CVConnectorPlugin::loginRequestFinished);
    connector()->server()->prependRequestToQueue(m_loginReference);
}

void CVConnectorPlugin::refreshStatus()
{
    if (!connector()->isLoginAvailable() || m_statusRequest)
        return;
    const QSharedPointer<CVStatusRequest> request(new CVStatusRequest(connector()));
    m_statusRequest = request.data();
    m_statusReference = request;
    connect(m_statusRequest, &HRequest::requestFinished, this, &CVConnectorPlugin::statusRequestFinished);
    connector()->server()->addRequestToQueue(m_statusReference);
}

void CVConnectorPlugin::loginRequestFinished()
{
    if (!m_loginRequest)
        return;
    if (m_loginRequest->isSuccessful())
        applyFinishedLogin();
    m_loginRequest = nullptr;
    m_loginReference.reset();
}

// The order is fixed: the program's own handling first, then limit and panel, then search interval, context
// and, last, the update, which may tell the user something.
void CVConnectorPlugin::applyFinishedLogin()
{
    applyLogin(m_loginRequest);
    const CVAccountStatus status = m_loginRequest->accountStatus();
    if (status.maxConnections() > 0)
        connector()->distributor()->setMaxConnectionsMax(status.maxConnections());
    if (m_infoPanel)
        m_infoPanel->updateAccountStatus(status);
    if (status.nextUpdateMillis() > 0)
        QTimer::singleShot(status.nextUpdateMillis(), this, &CVConnectorPlugin::refreshStatus);
    if (HAutoSearchService *autoSearch = connector()->autoSearch())
        autoSearch->setCheckInterval(m_loginRequest->autoSearchCheckInterval());
    CVContext::instance()->updateFromLogin(m_loginRequest);
    const QDomElement update = m_loginRequest->softwareUpdateElement();
    if (!update.isNull())
        core()->performOnlineUpdate(update);
}

// A status request that failed yields the record that it holds, which then is the default one.
void CVConnectorPlugin::statusRequestFinished()
{
    if (!m_statusRequest)
        return;
    const CVAccountStatus status = m_statusRequest->accountStatus();
    if (status.maxConnections() > 0)
        connector()->distributor()->setMaxConnectionsMax(status.maxConnections());
    if (m_infoPanel)
        m_infoPanel->updateAccountStatus(status);
    m_statusRequest = nullptr;
    m_statusReference.reset();
}

void CVConnectorPlugin::forgetAccount()
{
    if (m_infoPanel)
        m_infoPanel->showNoAccount();
}
