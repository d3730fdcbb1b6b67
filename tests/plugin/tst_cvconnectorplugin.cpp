// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "loopbackaccount.h"

#include "connector/cvconnectorplugin.h"
#include "panels/cvmessagestoolwidget.h"
#include "requests/cvcontext.h"

#include <halvora/benchmark.h>
#include <halvora/connector.h>
#include <halvora/hautosearchservice.h>
#include <halvora/hjobresulthandler.h>
#include <halvora/hmessagemanager.h>
#include <halvora/hloginrequest.h>
#include <halvora/hnntpdistributor.h>
#include <halvora/hserver.h>
#include <halvora/mainwindow.h>
#include <halvora/pluginmanager.h>
#include <halvora/statsplugin.h>
#include <halvora/trafficmeter.h>

#include <QAbstractEventDispatcher>
#include <QAbstractItemView>
#include <QAction>
#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>
#include <QTimer>

namespace {

/// Tells who asks what, without an answer from anybody.
class AskedRequest final : public HRequest {
public:
    using HRequest::HRequest;
    void buildRequestInternal(QXmlStreamWriter &) override {}
    bool isAllowedToSend(bool serverReady, bool) const override { return serverReady; }
};

constexpr int fiveMinutes = 300'000;

/// The one-shots of five minutes that are under way in this thread; nobody needs them to the millisecond.
int fiveMinuteTimers()
{
    auto *dispatcher = QAbstractEventDispatcher::instance();
    int count = 0;
    for (QObject *timer : dispatcher->children()) {
        for (const QAbstractEventDispatcher::TimerInfo &info : dispatcher->registeredTimers(timer))
            count += qstrcmp(timer->metaObject()->className(), "QSingleShotTimer") == 0 &&
                     info.interval == fiveMinutes && info.timerType != Qt::PreciseTimer;
    }
    return count;
}

corvia::Fault body(const std::string &text)
{
    corvia::Fault fault;
    fault.kind = corvia::Fault::Kind::Body;
    fault.text = text;
    return fault;
}

/// Everything that a login may bring but, unless @p session, the session word that makes it a successful one.
corvia::Fault fullLogin(bool session)
{
    return body(std::string("<reply version='1'><login auto-search-interval='720'") +
                (session ? " session='s'" : "") +
                "><nntp-servers><server host='127.0.0.1' port='1' ssl='true'/></nntp-servers>"
                "<status supported='true' next-update-millis='300000'><plan name='P'/>"
                "<nntp max-connections='12' billing-bytes='1' mtd-bytes='1'/></status>"
                "<software-update version='9.9' url='https://www.corvia.example/get'>new</software-update>"
                "</login></reply>");
}

/// The demo account, changed where a test needs it.
std::string scenario(const std::string &status)
{
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<scenario version="1" auto-search-interval="720"><account user="demo" password="pinegate">)" +
           status + R"(</account><groups><group name="comp.demo" posting="y"/></groups></scenario>)";
}

/// The demo account logged in, with its figures on the panel once plan() is visible.
class ShownAccount {
public:
    ShownAccount()
        : plugin(&account.core())
        , window(&account.core())
    {
        account.useDemo(plugin);
        plugin.polish(&window);
        window.show();
        plugin.startLogin();
    }

    int page() const
    {
        const auto *panel = window.findChild<QDockWidget *>(QStringLiteral("InfoToolWidget"));
        return panel->findChild<QStackedWidget *>()->currentIndex();
    }

    LoopbackAccount account;
    CVConnectorPlugin plugin;
    MainWindow window;
};

constexpr int emptyPage = 0;
constexpr int accountPage = 2;

class CountingPlugin final : public CVConnectorPlugin {
public:
    using CVConnectorPlugin::CVConnectorPlugin;
    int refreshes = 0;
    QStringList applied;
    QPointer<HLoginRequest> login; ///< the last one that was applied

    void refreshStatus() override
    {
        ++refreshes;
        CVConnectorPlugin::refreshStatus();
    }
    void applyLogin(HLoginRequest *request) override
    {
        login = request;
        applied.append(QString::number(connector()->distributor()->maxConnectionsMax()));
        CVConnectorPlugin::applyLogin(request);
    }
};

/// Its addresses carry another flag, to see who is asked.
class OtherFlag final : public CVConnectorPlugin {
public:
    using CVConnectorPlugin::CVConnectorPlugin;
    bool addressFlag() const override { return false; }
};

} // namespace

class TestCVConnectorPlugin : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theConstructorMakesWhatTheHostAsksFor();
    void theStatusTimerRunsEveryTenMinutes();
    void thereIsOneAddressAndItIsThePrimary();
    void anAddressAsksForItsFlagVirtually();
    void theMetaObjectListsASignalAndFourSlots();
    void aSecondLoginIsIgnoredWhileOneIsInFlight();
    void aLoginGoesToTheFront();
    void aStatusRequestGoesToTheBack();
    void aStatusRequestNeedsALogin();
    void aSecondStatusRequestIsIgnoredWhileOneIsInFlight();
    void aLoginIsAppliedInItsOrder();
    void aLoginAsksAgainAfterTheTimeThatTheServiceGave();
    void aLoginArmsOneMoreStatusRequest();
    void aStatusReplyArmsNothing();
    void aLoginWithoutNextUpdateArmsNothing_data();
    void aLoginWithoutNextUpdateArmsNothing();
    void aRefusedLoginChangesNothingAndMayBeRepeated();
    void aLoginWithoutASessionWordAppliesNothingOfItsReply();
    void aLimitOfZeroOrUnknownLeavesTheDistributorAlone();
    void aStatusReplySetsTheLimitAnew();
    void aStatusReplyWithoutALimitLeavesTheDistributorAlone_data();
    void aStatusReplyWithoutALimitLeavesTheDistributorAlone();
    void oneStatusRequestMayFollowAnother();
    void aFailedStatusRequestShowsTheLoginPage();
    void aLogoutEmptiesTheAccountPanel();
    void aStatusThatComesAfterALogoutIsNotShown();
    void anotherUserEmptiesTheAccountPanel();
    void aLostServiceKeepsTheFiguresOnTheAccountPanel();
    void anUpdateIsTold();
    void aLoginWithoutAnUpdateTellsNone();
    void aFinishedLoginIsLetGo();
    void aSlotWithoutItsRequestDoesNothing();
    void thePanelsAreMadeInTheirOrder();
    void thePanelIsMadeWithTheStatistics();
    void ofTwoStatisticsThePanelTakesTheFirst();
    void withoutStatisticsThePanelHasNone();
    void destroyingItWithRequestsInFlightIsHarmless();
};

void TestCVConnectorPlugin::theConstructorMakesWhatTheHostAsksFor()
{
    LoopbackAccount account;
    const CVConnectorPlugin plugin(&account.core());
    QCOMPARE(plugin.jobResultHandler()->connector(), plugin.connector());
    QCOMPARE(plugin.jobResultHandler()->parent(), &plugin);
    QCOMPARE(plugin.aboutAction()->parent(), &plugin);
    QCOMPARE(plugin.aboutAction()->menuRole(), QAction::AboutRole);
    QVERIFY(plugin.aboutAction()->text().isEmpty());
    QCOMPARE(plugin.connector()->server()->currentAddress().host(),
             QStringLiteral("accounts.corvia.example"));
}

void TestCVConnectorPlugin::theStatusTimerRunsEveryTenMinutes()
{
    LoopbackAccount account;
    CountingPlugin plugin(&account.core());
    auto *timer = plugin.findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(timer->isActive());
    QVERIFY(!timer->isSingleShot());
    QCOMPARE(timer->interval(), 600000);
    timer->setInterval(1);
    QTRY_VERIFY(plugin.refreshes > 1); // the override is what the timer calls
}

void TestCVConnectorPlugin::thereIsOneAddressAndItIsThePrimary()
{
    LoopbackAccount account;
    const CVConnectorPlugin plugin(&account.core());
    const QList<HServerAddress> addresses = plugin.serverAddresses();
    QCOMPARE(addresses.size(), 1);
    QCOMPARE(addresses.first().host(), QStringLiteral("accounts.corvia.example"));
    QCOMPARE(addresses.first().port(), 5598);
    QCOMPARE(addresses.first().isSecure(), true);
    QCOMPARE(addresses.first().number(), 0);
}

void TestCVConnectorPlugin::anAddressAsksForItsFlagVirtually()
{
    LoopbackAccount account;
    const OtherFlag plugin(&account.core());
    QCOMPARE(plugin.serverAddresses().size(), 1);
    QVERIFY(!plugin.serverAddresses().constFirst().isSecure());
}

void TestCVConnectorPlugin::theMetaObjectListsASignalAndFourSlots()
{
    const QMetaObject &meta = CVConnectorPlugin::staticMetaObject;
    QCOMPARE(meta.className(), "CVConnectorPlugin");
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods.append(QString::fromLatin1(meta.method(i).methodSignature()));
    const QStringList expected{QStringLiteral("statsRequested()"), QStringLiteral("showAboutDialog()"),
                               QStringLiteral("showControlPanel()"), QStringLiteral("loginRequestFinished()"),
                               QStringLiteral("statusRequestFinished()")};
    QCOMPARE(methods, expected);
    QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
    for (int i = meta.methodOffset() + 1; i < meta.methodCount(); ++i)
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void TestCVConnectorPlugin::aSecondLoginIsIgnoredWhileOneIsInFlight()
{
    LoopbackAccount account;
    CVConnectorPlugin plugin(&account.core());
    account.useDemo(plugin);
    plugin.startLogin();
    plugin.startLogin();
    QTRY_COMPARE(plugin.connector()->server()->connectorState(), HServer::Connected);
    plugin.refreshStatus();
    QTRY_COMPARE(account.requestNames(), QStringList({QStringLiteral("login"), QStringLiteral("status")}));
    plugin.startLogin();
    QTRY_COMPARE(account.requestNames().count(QStringLiteral("login")), 2);
}

// Both wait until there is an account; then the queue is asked from its front.
void TestCVConnectorPlugin::aLoginGoesToTheFront()
{
    LoopbackAccount account;
    CVConnectorPlugin plugin(&account.core());
    account.use(plugin);
    const QSharedPointer<HRequest> other(new AskedRequest(plugin.connector()));
    plugin.connector()->server()->addRequestToQueue(other);
    plugin.startLogin();
    account.useDemo(plugin);
    QTRY_COMPARE(account.requestNames(), QStringList({QStringLiteral("login"), QString()}));
}

void TestCVConnectorPlugin::aStatusRequestGoesToTheBack()
{
    LoopbackAccount account;
    CVConnectorPlugin plugin(&account.core());
    account.useDemo(plugin);
    plugin.startLogin();
    QTRY_COMPARE(plugin.connector()->server()->connectorState(), HServer::Connected);
    plugin.connector()->setAccount(QStringLiteral("demo"), QString());
    const QSharedPointer<HRequest> other(new AskedRequest(plugin.connector()));
    plugin.connector()->server()->addRequestToQueue(other);
    plugin.refreshStatus();
    account.useDemo(plugin);
    QTRY_COMPARE(account.requestNames(),
                 QStringList({QStringLiteral("login"), QString(), QStringLiteral("status")}));
}

void TestCVConnectorPlugin::aStatusRequestNeedsALogin()
{
    LoopbackAccount account;
    CVConnectorPlugin plugin(&account.core());
    account.useDemo(plugin);
    plugin.refreshStatus();
    // Waits for the login as a status request would, behind which it would then come.
    const QSharedPointer<HRequest> other(new HRequest(plugin.connector()));
    plugin.connector()->server()->addRequestToQueue(other);
    plugin.startLogin();
    QTRY_COMPARE(account.requestNames(), QStringList({QStringLiteral("login"), QString()}));
    plugin.refreshStatus();
    QTRY_COMPARE(account.requestNames().count(QStringLiteral("status")), 1);
}

void TestCVConnectorPlugin::aSecondStatusRequestIsIgnoredWhileOneIsInFlight()
{
    LoopbackAccount account;
    CVConnectorPlugin plugin(&account.core());
    account.useDemo(plugin);
    plugin.startLogin();
    QTRY_COMPARE(plugin.connector()->server()->connectorState(), HServer::Connected);
    plugin.refreshStatus();
    plugin.refreshStatus();
    QTRY_COMPARE(account.requestNames().count(QStringLiteral("status")), 1);
    plugin.startLogin(); // comes back after whatever else was sent
    QTRY_COMPARE(account.requestNames().count(QStringLiteral("login")), 2);
    QCOMPARE(account.requestNames().count(QStringLiteral("status")), 1);
}

void TestCVConnectorPlugin::aLoginIsAppliedInItsOrder()
{
    LoopbackAccount account;
    QVERIFY(account.isRunning());
    account.service().setFault(fullLogin(true));
    CountingPlugin plugin(&account.core());
    account.useDemo(plugin);
    MainWindow window(&account.core());
    account.core().setMainWindow(&window);
    plugin.polish(&window);

    QStringList order;
    Connector *connector = plugin.connector();
    const int timersBefore = fiveMinuteTimers();
    const auto note = [&](const char *step) {
        QString done = QLatin1String(step) + QLatin1Char(':');
        if (connector->distributor()->maxConnectionsMax() == 12)
            done += QStringLiteral(" limit");
        if (window.findChild<QLabel *>(QStringLiteral("plan"))->text() == QLatin1String("P"))
            done += QStringLiteral(" panel");
        if (fiveMinuteTimers() > timersBefore)
            done += QStringLiteral(" timer");
        if (connector->autoSearch()->checkInterval() == 720)
            done += QStringLiteral(" interval");
        order.append(done);
    };
    // The context outlives this test, so what it calls must not.
    const QObject guard;
    connect(connector->server(), &HServer::stateChanged, &guard, [&note](HServer::State state) {
        if (state == HServer::Connected)
            note("apply");
    });
    connect(connector->distributor(), &HNntpDistributor::changed, &guard, [&note] { note("limit"); });
    connect(connector->autoSearch(), &HAutoSearchService::checkIntervalChanged, &guard,
            [&note] { note("interval"); });
    connect(CVContext::instance(), &HContext::changed, &guard, [&note] { note("context"); });
    connect(&account.core(), &Core::softwareUpdateOffered, &guard, [&note] { note("update"); });
    plugin.startLogin();
    const QStringList expected{QStringLiteral("apply:"), QStringLiteral("limit: limit"),
                               QStringLiteral("interval: limit panel timer interval"),
                               QStringLiteral("context: limit panel timer interval"),
                               QStringLiteral("update: limit panel timer interval")};
    QTRY_COMPARE(order, expected);
    QCOMPARE(plugin.applied.size(), 1); // virtually
    QCOMPARE(connector->nntpHosts().size(), 1);
}

void TestCVConnectorPlugin::aLoginAsksAgainAfterTheTimeThatTheServiceGave()
{
    LoopbackAccount account; // whose service asks for five minutes
    CountingPlugin plugin(&account.core());
    account.useDemo(plugin);
    const int before = fiveMinuteTimers();
    for (int logins = 1; logins <= 2; ++logins) {
        plugin.startLogin();
        QTRY_COMPARE(plugin.applied.size(), logins);
        QCOMPARE(fiveMinuteTimers(), before + logins); // the earlier ones go on
    }
    account.service().setPlan("demo", 12, 1, 1);
    plugin.refreshStatus();
    QTRY_COMPARE(plugin.connector()->distributor()->maxConnectionsMax(), 12);
    QCOMPARE(fiveMinuteTimers(), before + 2); // a status reply asks for nothing
    const auto *timer = plugin.findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 600000);
}

void TestCVConnectorPlugin::aLoginArmsOneMoreStatusRequest()
{
    LoopbackAccount account(scenario("<status supported='true' next-update-millis='20'/>"));
    CountingPlugin plugin(&account.core());
    account.useDemo(plugin);
    plugin.startLogin();
    QTRY_COMPARE(plugin.refreshes, 1);
    QTRY_COMPARE(account.requestNames(), QStringList({QStringLiteral("login"), QStringLiteral("status")}));
}

void TestCVConnectorPlugin::aStatusReplyArmsNothing()
{
    LoopbackAccount account(scenario("<status supported='true' next-update-millis='1'/>"));
    CountingPlugin plugin(&account.core());
    account.useDemo(plugin);
    plugin.startLogin();
    QTRY_COMPARE(account.requestNames().size(), 2);
    // Two further logins arm two more; had the replies to the status requests armed any, there would be more.
    for (int logins = 2; logins <= 3; ++logins) {
        plugin.startLogin();
        QTRY_COMPARE(plugin.refreshes, logins);
    }
    QTRY_COMPARE(account.requestNames().count(QStringLiteral("login")), 3);
    QCOMPARE(plugin.refreshes, 3);
}

void TestCVConnectorPlugin::aLoginWithoutNextUpdateArmsNothing_data()
{
    QTest::addColumn<QByteArray>("status");
    QTest::newRow("none") << QByteArray("<status/>");
    QTest::newRow("zero") << QByteArray("<status next-update-millis='0'/>");
    QTest::newRow("negative") << QByteArray("<status next-update-millis='-1'/>");
    QTest::newRow("no number") << QByteArray("<status next-update-millis='abc'/>");
    QTest::newRow("no status") << QByteArray();
}

void TestCVConnectorPlugin::aLoginWithoutNextUpdateArmsNothing()
{
    QFETCH(QByteArray, status);
    LoopbackAccount account;
    CountingPlugin plugin(&account.core());
    account.useDemo(plugin);
    account.service().setFault(
        body("<reply version='1'><login session='s'>" + status.toStdString() + "</login></reply>"));
    for (int logins = 1; logins <= 2; ++logins) {
        plugin.startLogin();
        QTRY_COMPARE(plugin.applied.size(), logins);
    }
    QCOMPARE(plugin.refreshes, 0);
}

void TestCVConnectorPlugin::aRefusedLoginChangesNothingAndMayBeRepeated()
{
    LoopbackAccount account;
    CVConnectorPlugin plugin(&account.core());
    account.use(plugin);
    Connector *connector = plugin.connector();
    connector->setAccount(QStringLiteral("demo"), QStringLiteral("wrong"));
    MainWindow window(&account.core());
    plugin.polish(&window);
    const int limit = connector->distributor()->maxConnectionsMax();
    const QString user = window.findChild<QLabel *>(QStringLiteral("user"))->text();
    const QSignalSpy context(CVContext::instance(), &HContext::changed);
    const QSignalSpy failed(connector->server(), &HServer::requestFailed);
    plugin.startLogin();
    QTRY_COMPARE(failed.count(), 1);
    QCOMPARE(connector->distributor()->maxConnectionsMax(), limit);
    QCOMPARE(connector->autoSearch()->checkInterval(), 0);
    QCOMPARE(window.findChild<QLabel *>(QStringLiteral("user"))->text(), user);
    QCOMPARE(context.count(), 0);
    QVERIFY(!connector->isLoginAvailable());

    account.useDemo(plugin);
    plugin.startLogin();
    QTRY_COMPARE(connector->server()->connectorState(), HServer::Connected);
}

void TestCVConnectorPlugin::aLoginWithoutASessionWordAppliesNothingOfItsReply()
{
    LoopbackAccount account;
    CountingPlugin plugin(&account.core());
    account.useDemo(plugin);
    account.service().setFault(fullLogin(false));
    MainWindow window(&account.core());
    plugin.polish(&window);
    Connector *connector = plugin.connector();
    connector->autoSearch()->setCheckInterval(99);
    const int limit = connector->distributor()->maxConnectionsMax();
    const int timers = fiveMinuteTimers();
    const QSignalSpy context(CVContext::instance(), &HContext::changed);
    const QSignalSpy update(&account.core(), &Core::softwareUpdateOffered);
    const QSignalSpy failed(connector->server(), &HServer::requestFailed);
    plugin.startLogin();
    QTRY_COMPARE(failed.count(), 1);
    QVERIFY(plugin.applied.isEmpty());
    QCOMPARE(connector->distributor()->maxConnectionsMax(), limit);
    QCOMPARE(window.findChild<QDockWidget *>(QStringLiteral("InfoToolWidget"))
                 ->findChild<QStackedWidget *>()
                 ->currentIndex(),
             0);
    QCOMPARE(fiveMinuteTimers(), timers);
    QCOMPARE(connector->autoSearch()->checkInterval(), 99);
    QCOMPARE(context.count(), 0);
    QCOMPARE(update.count(), 0);
}

void TestCVConnectorPlugin::aLimitOfZeroOrUnknownLeavesTheDistributorAlone()
{
    for (const char *limit : {"0", "-1", "x"}) {
        LoopbackAccount account;
        CVConnectorPlugin plugin(&account.core());
        account.useDemo(plugin);
        corvia::Fault fault;
        fault.kind = corvia::Fault::Kind::Body;
        fault.text = std::string("<reply version='1'><login session='s'><status><nntp max-connections='") +
                     limit + "'/></status></login></reply>";
        account.service().setFault(fault);
        const int before = plugin.connector()->distributor()->maxConnectionsMax();
        plugin.startLogin();
        QTRY_COMPARE(plugin.connector()->server()->connectorState(), HServer::Connected);
        QCOMPARE(plugin.connector()->distributor()->maxConnectionsMax(), before);
    }
}

void TestCVConnectorPlugin::aStatusReplySetsTheLimitAnew()
{
    LoopbackAccount account;
    CVConnectorPlugin plugin(&account.core());
    account.useDemo(plugin);
    plugin.startLogin();
    QTRY_COMPARE(plugin.connector()->distributor()->maxConnectionsMax(), 20);
    account.service().setPlan("demo", 12, 1, 1);
    plugin.refreshStatus();
    QTRY_COMPARE(plugin.connector()->distributor()->maxConnectionsMax(), 12);
}

void TestCVConnectorPlugin::aStatusReplyWithoutALimitLeavesTheDistributorAlone_data()
{
    QTest::addColumn<QByteArray>("nntp");
    QTest::newRow("zero") << QByteArray("<nntp max-connections='0'/>");
    QTest::newRow("negative") << QByteArray("<nntp max-connections='-1'/>");
    QTest::newRow("no number") << QByteArray("<nntp max-connections='x'/>");
    QTest::newRow("none") << QByteArray("<nntp/>");
    QTest::newRow("no element") << QByteArray();
}

void TestCVConnectorPlugin::aStatusReplyWithoutALimitLeavesTheDistributorAlone()
{
    QFETCH(QByteArray, nntp);
    LoopbackAccount account;
    CVConnectorPlugin plugin(&account.core());
    account.useDemo(plugin);
    plugin.startLogin();
    QTRY_COMPARE_WITH_TIMEOUT(plugin.connector()->distributor()->maxConnectionsMax(), 20, 60'000);
    account.service().setFault(
        body("<reply version='1'><status><plan name='Q'/>" + nntp.toStdString() + "</status></reply>"));
    plugin.refreshStatus();
    const QSharedPointer<HRequest> next(new AskedRequest(plugin.connector()));
    const QSignalSpy nextFinished(next.data(), &HRequest::requestFinished);
    plugin.connector()->server()->addRequestToQueue(next); // is told after the one before it
    QTRY_COMPARE_WITH_TIMEOUT(nextFinished.count(), 1, 60'000);
    QCOMPARE(account.requestNames().value(1), QStringLiteral("status"));
    QCOMPARE(plugin.connector()->distributor()->maxConnectionsMax(), 20);
}

void TestCVConnectorPlugin::oneStatusRequestMayFollowAnother()
{
    LoopbackAccount account;
    CVConnectorPlugin plugin(&account.core());
    account.useDemo(plugin);
    plugin.startLogin();
    QTRY_VERIFY(plugin.connector()->isLoginAvailable());
    for (const int limit : {11, 12}) {
        account.service().setPlan("demo", limit, 1, 1);
        plugin.refreshStatus();
        QTRY_COMPARE(plugin.connector()->distributor()->maxConnectionsMax(), limit);
    }
}

void TestCVConnectorPlugin::aFailedStatusRequestShowsTheLoginPage()
{
    LoopbackAccount account;
    CVConnectorPlugin plugin(&account.core());
    account.useDemo(plugin);
    MainWindow window(&account.core());
    plugin.polish(&window);
    window.show();
    plugin.startLogin();
    const auto *plan = window.findChild<QLabel *>(QStringLiteral("plan"));
    const auto *user = window.findChild<QLabel *>(QStringLiteral("user"));
    QTRY_VERIFY(plan->isVisible());
    corvia::Fault fault;
    fault.kind = corvia::Fault::Kind::Status;
    fault.number = 500;
    account.service().setFault(fault);
    plugin.refreshStatus();
    QTRY_VERIFY(user->isVisible());
    QVERIFY(!plan->isVisible());
    QCOMPARE(plugin.connector()->server()->connectorState(), HServer::Connected);
    account.service().setFault(corvia::Fault());
    plugin.refreshStatus(); // the failed one holds nobody up
    QTRY_VERIFY(plan->isVisible());
}

void TestCVConnectorPlugin::aLogoutEmptiesTheAccountPanel()
{
    ShownAccount shown;
    QTRY_COMPARE(shown.page(), accountPage);
    shown.plugin.connector()->logOut();
    QCOMPARE(shown.page(), emptyPage);
    shown.account.useDemo(shown.plugin);
    shown.plugin.startLogin();
    QTRY_COMPARE(shown.page(), accountPage);
}

void TestCVConnectorPlugin::aStatusThatComesAfterALogoutIsNotShown()
{
    ShownAccount shown;
    QTRY_COMPARE(shown.page(), accountPage);
    corvia::Fault fault;
    fault.kind = corvia::Fault::Kind::Stall;
    shown.account.service().setFault(fault);
    QSignalSpy failures(shown.plugin.connector()->server(), &HServer::requestFailed);
    shown.plugin.refreshStatus();
    shown.plugin.connector()->logOut();
    // The same user again does not make it one of the new login.
    shown.plugin.connector()->setAccount(QStringLiteral("demo"), QStringLiteral("pinegate"));
    QTRY_COMPARE(failures.count(), 1);
    QCOMPARE(shown.page(), emptyPage);
    shown.account.service().setFault(corvia::Fault());
    shown.plugin.startLogin();
    QTRY_COMPARE(shown.page(), accountPage);
    shown.plugin.refreshStatus();
    QTRY_COMPARE(shown.account.requestNames().last(), QStringLiteral("status"));
}

void TestCVConnectorPlugin::anotherUserEmptiesTheAccountPanel()
{
    ShownAccount shown;
    QTRY_COMPARE(shown.page(), accountPage);
    shown.plugin.connector()->setAccount(QStringLiteral("demo"), QString());
    QCOMPARE(shown.page(), accountPage);
    shown.plugin.connector()->setAccount(QStringLiteral("reseller"), QStringLiteral("pinegate"));
    QCOMPARE(shown.page(), accountPage);
    QVector<int> pages;
    connect(shown.plugin.connector(), &Connector::accountLeft, this, [&] { pages.append(shown.page()); });
    shown.plugin.startLogin();
    QTRY_VERIFY(shown.plugin.connector()->isLoginAvailable() && shown.page() != accountPage);
    QCOMPARE(pages, QVector<int>{emptyPage});
}

void TestCVConnectorPlugin::aLostServiceKeepsTheFiguresOnTheAccountPanel()
{
    ShownAccount shown;
    QTRY_COMPARE(shown.page(), accountPage);
    corvia::Fault fault;
    fault.kind = corvia::Fault::Kind::Close;
    shown.account.service().setFault(fault);
    shown.plugin.startLogin();
    QTRY_COMPARE(shown.plugin.connector()->server()->connectorState(), HServer::ServiceLost);
    QCOMPARE(shown.page(), accountPage);
}

void TestCVConnectorPlugin::anUpdateIsTold()
{
    LoopbackAccount account;
    CVConnectorPlugin plugin(&account.core());
    account.useDemo(plugin);
    corvia::Fault fault;
    fault.kind = corvia::Fault::Kind::Body;
    fault.text = "<reply version='1'><login session='s'><software-update version='9.9' "
                 "url='https://www.corvia.example/get'>new</software-update></login></reply>";
    account.service().setFault(fault);
    QStringList told;
    connect(&account.core(), &Core::softwareUpdateOffered, this,
            [&told](const SoftwareUpdate &update) { told << update.version << update.url << update.note; });
    plugin.startLogin();
    const QStringList expected{QStringLiteral("9.9"), QStringLiteral("https://www.corvia.example/get"),
                               QStringLiteral("new")};
    QTRY_COMPARE(told, expected);
}

void TestCVConnectorPlugin::aLoginWithoutAnUpdateTellsNone()
{
    LoopbackAccount account;
    CountingPlugin plugin(&account.core());
    account.useDemo(plugin);
    account.service().setFault(body("<reply version='1'><login session='s'/></reply>"));
    const QSignalSpy update(&account.core(), &Core::softwareUpdateOffered);
    plugin.startLogin();
    QTRY_COMPARE_WITH_TIMEOUT(plugin.applied.size(), 1, 60'000);
    QCOMPARE(update.count(), 0);
}

void TestCVConnectorPlugin::aFinishedLoginIsLetGo()
{
    LoopbackAccount account;
    CountingPlugin plugin(&account.core());
    account.useDemo(plugin);
    plugin.startLogin();
    QTRY_COMPARE_WITH_TIMEOUT(plugin.applied.size(), 1, 60'000);
    QTRY_VERIFY_WITH_TIMEOUT(!plugin.login, 60'000);
}

// Anybody can call a slot by its name.
void TestCVConnectorPlugin::aSlotWithoutItsRequestDoesNothing()
{
    LoopbackAccount account;
    CountingPlugin plugin(&account.core());
    MainWindow window(&account.core());
    plugin.polish(&window);
    const int limit = plugin.connector()->distributor()->maxConnectionsMax();
    QVERIFY(QMetaObject::invokeMethod(&plugin, "loginRequestFinished"));
    QVERIFY(QMetaObject::invokeMethod(&plugin, "statusRequestFinished"));
    QVERIFY(plugin.applied.isEmpty());
    QCOMPARE(plugin.connector()->distributor()->maxConnectionsMax(), limit);
}

void TestCVConnectorPlugin::thePanelsAreMadeInTheirOrder()
{
    LoopbackAccount account;
    CVConnectorPlugin plugin(&account.core());
    MainWindow window(&account.core());
    Benchmark benchmark;
    plugin.init(benchmark);
    plugin.polish(&window);
    QStringList names;
    const QList<QDockWidget *> docks =
        window.findChildren<QDockWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QDockWidget *dock : docks)
        names.append(dock->objectName());
    const QStringList expected{QStringLiteral("CVBookmarksDock"), QStringLiteral("MessagesToolWidget"),
                               QStringLiteral("InfoToolWidget")};
    QCOMPARE(names.mid(names.size() - expected.size()), expected);

    auto *messages = qobject_cast<CVMessagesToolWidget *>(docks.at(docks.size() - 2));
    QVERIFY(messages);
    QCOMPARE(window.dockWidgetArea(messages), Qt::BottomDockWidgetArea);
    const auto *view = messages->findChild<QAbstractItemView *>();
    QCOMPARE(view->model(), static_cast<QAbstractItemModel *>(plugin.connector()->messages()));
}

void TestCVConnectorPlugin::thePanelIsMadeWithTheStatistics()
{
    LoopbackAccount account;
    CVConnectorPlugin plugin(&account.core());
    MainWindow window(&account.core());
    account.core().plugin()->registerPlugin(new StatsPlugin(&account.core(), QStringLiteral("one")));
    plugin.polish(&window);
    auto *panel = window.findChild<QDockWidget *>(QStringLiteral("InfoToolWidget"));
    QVERIFY(panel);
    QCOMPARE(window.dockWidgetArea(panel), Qt::BottomDockWidgetArea);
    QVERIFY(panel->findChild<QLabel *>(QStringLiteral("today")));
}

void TestCVConnectorPlugin::ofTwoStatisticsThePanelTakesTheFirst()
{
    LoopbackAccount account;
    CVConnectorPlugin plugin(&account.core());
    MainWindow window(&account.core());
    PluginManager *plugins = account.core().plugin();
    auto *first = new StatsPlugin(&account.core(), QStringLiteral("one"));
    auto *second = new StatsPlugin(&account.core(), QStringLiteral("two"));
    plugins->registerPlugin(first);
    plugins->registerPlugin(second);
    plugin.polish(&window);
    const auto *today = window.findChild<QLabel *>(QStringLiteral("today"));
    const QString before = today->text();
    account.core().traffic().addNntpDown(1 << 20);
    second->poll();
    QCOMPARE(today->text(), before);
    first->poll();
    QVERIFY(today->text() != before);
}

void TestCVConnectorPlugin::withoutStatisticsThePanelHasNone()
{
    LoopbackAccount account;
    CVConnectorPlugin plugin(&account.core());
    MainWindow window(&account.core());
    plugin.polish(&window);
    QVERIFY(!window.findChild<QLabel *>(QStringLiteral("today")));
}

void TestCVConnectorPlugin::destroyingItWithRequestsInFlightIsHarmless()
{
    LoopbackAccount account;
    auto plugin = std::make_unique<CVConnectorPlugin>(&account.core());
    account.useDemo(*plugin);
    corvia::Fault fault;
    fault.kind = corvia::Fault::Kind::Stall;
    account.service().setFault(fault);
    plugin->startLogin();
    QTRY_COMPARE(account.service().connections(), 1);
    plugin.reset();
    QVERIFY(!account.core().isRunning());
}

QTEST_MAIN(TestCVConnectorPlugin)
#include "tst_cvconnectorplugin.moc"
