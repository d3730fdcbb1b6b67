// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "hostilenntpserver.h"
#include "recordingprivatedata.h"
#include "runningprogram.h"

#include <halvora/bookmarkprovider.h>
#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/hautosearchservice.h>
#include <halvora/hmessagemanager.h>
#include <halvora/hlog.h>
#include <halvora/isettings.h>
#include <halvora/linkopener.h>
#include <halvora/localemanager.h>
#include <halvora/mainwindow.h>
#include <halvora/pluginloader.h>
#include <halvora/pluginmanager.h>
#include <halvora/privatedataregistry.h>
#include <halvora/settingsregistry.h>

#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QDirIterator>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTcpServer>
#include <QTest>

#include <algorithm>

class TestApplication : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void aLoginFillsTheAccountPanel();
    void aWrongPasswordIsToldInTheDialogAndMayBeMended();
    void cancellingTheDialogCancelsTheLogin();
    void cancellingTheDialogLeavesReportsWaiting();
    void anotherUserLogsInWithoutALogout();
    void aLoginThatTheNewsServersRefusedGoesToTheService();
    void theNewsServersOwnReplyIsShown();
    void theUserIsRememberedButThePasswordIsInNoFile();
    void loggingOutForgetsUserAndState();
    void aLostServiceIsTriedAgainUntilItIsBack();
    void hostsThatNobodyAnswersAtDoNotLockTheUserOut();
    void aRefusedSessionWordMeansANewLogin();
    void aRefusedReplyIsToldInTheStatusBar();
    void withoutAServiceTheWindowSaysSo();
    void aRelativePluginFolderIsTheOneBelowTheCurrent();
    void withoutPluginsTheWindowSaysSo();
    void whatCouldNotBeLoadedIsStillToldAfterTheLogin();
    void aSecondProviderIsLeftOut();
    void aLoginRightAfterALogoutIsMade();
    void aRetryWaitsForThePersonWhoTypes();
    void aRememberedUserCanBeForgottenWithoutALogin();
    void aLongUserNameDoesNotWidenTheWindow();
    void theSettingsNameALimitOnlyWhenItIsKnown();
    void quittingWhileTheServiceStallsIsQuick();
    void callbacksComeOnceAndInTheirOrder();
    void clearingDeletesWhatTheBoxNamesAndNothingElse_data();
    void clearingDeletesWhatTheBoxNamesAndNothingElse();
    void everyBoxForPrivateDataSaysWhatGoes();
    void partsAreForgottenBeforeTheProviderGoes();
    void theLanguageChangesWhileItRuns();
    void theAboutActionStandsInTheHelpMenu();
};

namespace {

QString demo()
{
    return QStringLiteral("demo");
}

QString rightPassword()
{
    return QStringLiteral("pinegate");
}

bool statusBarSays(MainWindow &window, const QString &text)
{
    const QList<QLabel *> labels = window.statusBar()->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->isVisible() && (label->text().contains(text) || label->toolTip().contains(text)))
            return true;
    }
    return window.statusBar()->currentMessage().contains(text);
}

// As a login before did, at a time when the server was there.
void rememberNewsServer(const RunningProgram &program, int port)
{
    QSettings settings(program.profile() + QStringLiteral("/halvora.ini"), QSettings::IniFormat);
    settings.beginWriteArray(QStringLiteral("Account/NntpHosts"), 1);
    settings.setArrayIndex(0);
    settings.setValue(QStringLiteral("Host"), QStringLiteral("127.0.0.1"));
    settings.setValue(QStringLiteral("Port"), port);
    settings.setValue(QStringLiteral("Ssl"), false);
    settings.endArray();
}

/// Whether the profile has a file of that name, which may have wildcards.
bool isThere(const RunningProgram &program, const QString &pattern)
{
    const QFileInfo path(program.profile() + QLatin1Char('/') + pattern);
    return !path.dir().entryList({path.fileName()}, QDir::Files).isEmpty();
}

/// Opens the dialog that clears private data, with only the box @p name checked.
void openClearing(RunningProgram &program, const QString &name)
{
    Q_EMIT program.window().settingsRequested();
    program.find<QPushButton>("clearPrivateData")->click();
    const QList<QCheckBox *> boxes = program.find<QDialog>("ClearDataDialog")->findChildren<QCheckBox *>();
    for (QCheckBox *box : boxes)
        box->setChecked(box->text() == name);
}

class NoBookmarks final : public BookmarkProvider {
public:
    bool isBookmarked(const QString &) const override { return false; }
    QStringList bookmarkedNewsgroups() const override { return {}; }
    QStringList recommendedNewsgroups() const override { return {}; }
    void addBookmarks(const QStringList &) override {}
    void refresh() override {}
};

class NoSettings final : public ISettings {
public:
    void resetSettings() override {}
};

/// How often the service was asked to log somebody in.
int loginCount(RunningProgram &program)
{
    const std::vector<std::string> requests = program.service().requests();
    return int(std::count_if(requests.cbegin(), requests.cend(), [](const std::string &request) {
        return request.find("<login>") != std::string::npos;
    }));
}

corvia::Fault fault(corvia::Fault::Kind kind, int number = 0)
{
    corvia::Fault result;
    result.kind = kind;
    result.number = number;
    return result;
}

} // namespace

void TestApplication::initTestCase()
{
    QCoreApplication::setApplicationName(QStringLiteral("Halvora"));
    HLog::install();
}

void TestApplication::aLoginFillsTheAccountPanel()
{
    RunningProgram program;
    program.open();
    QCOMPARE(program.server().connectorState(), HServer::Disconnected);
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    QVERIFY(program.find<QLabel>("plan")->isVisible());
    QCOMPARE(program.find<QLabel>("plan")->text(), QStringLiteral("Pinegate Unlimited"));
    QCOMPARE(program.find<QLabel>("connections")->text(), QStringLiteral("20"));
    QTRY_VERIFY(!program.find<QDialog>("LoginDialog"));
    QVERIFY(statusBarSays(program.window(), QStringLiteral("Logged in as demo")));
    QVERIFY(!program.application().core()->url(QStringLiteral("control.panel")).isNull());
    program.close();
}

void TestApplication::aWrongPasswordIsToldInTheDialogAndMayBeMended()
{
    RunningProgram program;
    program.open();
    program.logIn(demo(), QStringLiteral("wrong"));
    QTRY_VERIFY(program.find<QLabel>("failure")->isVisible());
    QVERIFY(!program.find<QLabel>("failure")->text().isEmpty());
    QCOMPARE(program.find<QLabel>("failure")->textFormat(), Qt::PlainText);
    QCOMPARE(program.server().connectorState(), HServer::Disconnected);
    QVERIFY(program.find<QPushButton>("logIn")->isEnabled());
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    program.close();
}

void TestApplication::cancellingTheDialogCancelsTheLogin()
{
    RunningProgram program;
    program.open();
    program.service().setFault(fault(corvia::Fault::Kind::Stall));
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.service().requests().size(), size_t(1));
    program.find<QDialog>("LoginDialog")->reject();
    QCOMPARE(program.server().connectorState(), HServer::Disconnected);
    program.service().setFault(fault(corvia::Fault::Kind::None));
    // Nothing of it comes back; the next login is the person's own.
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    QCOMPARE(loginCount(program), 2);
    program.close();
}

// A report of what was read waits for the user's own login.
void TestApplication::cancellingTheDialogLeavesReportsWaiting()
{
    RunningProgram program;
    program.open();
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    program.close();

    program.open();
    const QSharedPointer<HRequest> report(new HRequest(program.application().connectorPlugin()->connector()));
    const QSignalSpy finished(report.data(), &HRequest::requestFinished);
    program.server().addRequestToQueue(report);
    program.service().setFault(fault(corvia::Fault::Kind::Stall));
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(loginCount(program), 2);
    program.find<QDialog>("LoginDialog")->reject();
    QCOMPARE(program.server().connectorState(), HServer::Disconnected);
    QCOMPARE(finished.count(), 0);
    program.service().setFault(fault(corvia::Fault::Kind::None));
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(finished.count(), 1);
    QVERIFY(report->failure().kind() != RequestFailure::Kind::LoggedOut);
    program.close();
}

void TestApplication::anotherUserLogsInWithoutALogout()
{
    RunningProgram program;
    program.open();
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    program.close();

    HostileNntpServer refusing(Scripts::answering({"381 more\r\n", "481 not yours\r\n"}));
    rememberNewsServer(program, refusing.port());
    program.open();
    program.logIn(QStringLiteral("reseller"), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    program.close();
}

void TestApplication::aLoginThatTheNewsServersRefusedGoesToTheService()
{
    RunningProgram program;
    HostileNntpServer refusing(Scripts::answering({"381 more\r\n", "481 not now\r\n"}));
    rememberNewsServer(program, refusing.port());
    program.open();
    program.logIn(demo(), rightPassword());
    QTRY_VERIFY(program.find<QLabel>("reply"));
    QTRY_COMPARE(program.find<QLabel>("reply")->text(), QStringLiteral("481 not now"));
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    program.close();
}

// From the second login on there are news servers to test the password at.
void TestApplication::theNewsServersOwnReplyIsShown()
{
    RunningProgram program;
    program.open();
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    program.close();

    const int before = loginCount(program);
    program.open();
    program.logIn(demo(), QStringLiteral("wrong"));
    QTRY_VERIFY(program.find<QLabel>("reply"));
    QTRY_VERIFY(program.find<QLabel>("reply")->isVisible());
    QVERIFY(program.find<QLabel>("reply")->text().startsWith(QLatin1String("481")));
    QCOMPARE(loginCount(program), before); // the service never saw that password
    program.close();
}

void TestApplication::theUserIsRememberedButThePasswordIsInNoFile()
{
    RunningProgram program;
    program.open();
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    program.close();
    program.open();
    Q_EMIT program.window().loginRequested();
    QCOMPARE(program.find<QLineEdit>("user")->text(), demo());
    QCOMPARE(program.find<QLineEdit>("password")->text(), QString());
    program.close();

    for (const QString &folder : {program.profile(), QDir::homePath()}) {
        QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray text = file.readAll().replace("[pinegate]", "").replace("traffic-pinegate", "");
            QVERIFY2(!text.contains("Password"), qPrintable(file.fileName()));
            QVERIFY2(!text.contains("=pinegate\n"), qPrintable(file.fileName()));
        }
    }
    QVERIFY(!HLog::report().contains(rightPassword()));
}

void TestApplication::loggingOutForgetsUserAndState()
{
    RunningProgram program;
    program.open();
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    Q_EMIT program.window().logoutRequested();
    QCOMPARE(program.server().connectorState(), HServer::Disconnected);
    Connector *connector = program.application().connectorPlugin()->connector();
    QVERIFY(connector->username().isEmpty());
    QVERIFY(connector->password().isEmpty());
    QVERIFY(connector->nntpHosts().isEmpty());
    QVERIFY(!connector->isLoginAvailable());
    QVERIFY(program.application().core()->url(QStringLiteral("control.panel")).isNull());
    program.close();
    program.open();
    Q_EMIT program.window().loginRequested();
    QCOMPARE(program.find<QLineEdit>("user")->text(), QString());
    program.close();
}

void TestApplication::aLostServiceIsTriedAgainUntilItIsBack()
{
    RunningProgram program;
    program.open();
    program.application().login()->setFirstPause(10);
    program.service().setFault(fault(corvia::Fault::Kind::Close));
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::ServiceLost);
    QTRY_VERIFY(program.service().connections() >= 3);
    program.service().setFault(fault(corvia::Fault::Kind::None));
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    program.close();
}

void TestApplication::hostsThatNobodyAnswersAtDoNotLockTheUserOut()
{
    RunningProgram program;
    rememberNewsServer(program, 1);
    program.open();
    program.application().login()->setFirstPause(10);
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    program.close();
}

void TestApplication::aRefusedSessionWordMeansANewLogin()
{
    RunningProgram program;
    program.open();
    program.application().login()->setFirstPause(10);
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    const QSignalSpy states(&program.server(), &HServer::stateChanged);
    program.service().setFault(fault(corvia::Fault::Kind::ForgetSessions));
    program.application().connectorPlugin()->refreshStatus();
    QTRY_VERIFY(states.count() > 0);
    program.service().setFault(fault(corvia::Fault::Kind::None));
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    QVERIFY(!program.find<QDialog>("LoginDialog"));
    program.close();
}

void TestApplication::aRefusedReplyIsToldInTheStatusBar()
{
    RunningProgram program;
    program.open();
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    program.service().setFault(fault(corvia::Fault::Kind::Status, 503));
    program.application().connectorPlugin()->refreshStatus();
    QTRY_VERIFY(statusBarSays(program.window(), QStringLiteral("status 503")));
    QCOMPARE(program.server().connectorState(), HServer::Connected);
    program.close();
}

void TestApplication::withoutAServiceTheWindowSaysSo()
{
    const QTemporaryDir profile;
    Options options;
    options.profile = profile.path();
    options.pluginDirectory = QStringLiteral(PLUGIN_DIRECTORY);
    Application application(options);
    application.start();
    Connector *connector = application.connectorPlugin()->connector();
    connector->setAccount(demo(), rightPassword());
    application.connectorPlugin()->startLogin();
    QTRY_COMPARE(connector->server()->connectorState(), HServer::ServiceLost);
    QVERIFY(statusBarSays(*application.window(), QStringLiteral("No account service is reachable.")));
}

void TestApplication::aRelativePluginFolderIsTheOneBelowTheCurrent()
{
    const QTemporaryDir profile;
    Options options;
    options.profile = profile.path();
    options.pluginDirectory = QDir::current().relativeFilePath(QStringLiteral(PLUGIN_DIRECTORY));
    const Application application(options);
    QVERIFY(application.connectorPlugin());
}

void TestApplication::withoutPluginsTheWindowSaysSo()
{
    RunningProgram program;
    program.open(QStringLiteral("/nowhere"));
    QVERIFY(program.window().isVisible());
    QVERIFY(statusBarSays(program.window(), QStringLiteral("No provider plug-in was found")));
    Q_EMIT program.window().settingsRequested();
    QVERIFY(program.find<QDialog>("SettingsDialog")->isVisible());
    program.close();
}

void TestApplication::whatCouldNotBeLoadedIsStillToldAfterTheLogin()
{
    const QTemporaryDir folder;
    const QString module = QStringLiteral("/pinegate.so");
    QVERIFY(QFile::copy(QStringLiteral(PLUGIN_DIRECTORY) + module, folder.path() + module));
    for (const char *name : {"/broken.so", "/torn.so"}) {
        QFile file(folder.path() + QLatin1String(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    RunningProgram program;
    program.open(folder.path());
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    QVERIFY(statusBarSays(program.window(), QStringLiteral("broken.so")));
    QVERIFY(statusBarSays(program.window(), QStringLiteral("torn.so")));
    program.close();
}

void TestApplication::aSecondProviderIsLeftOut()
{
    const QTemporaryDir folder;
    const QString module = QStringLiteral(PLUGIN_DIRECTORY "/pinegate.so");
    QVERIFY(QFile::copy(module, folder.path() + QStringLiteral("/one.so")));
    QVERIFY(QFile::copy(module, folder.path() + QStringLiteral("/two.so")));
    RunningProgram program;
    program.open(folder.path());
    QVERIFY(statusBarSays(program.window(), QStringLiteral("The plug-in two.so was left out")));
    QCOMPARE(program.window().findChildren<QDockWidget *>(QStringLiteral("InfoToolWidget")).size(), 1);
    QCOMPARE(program.application().connectorPlugin()->configName(), QStringLiteral("one"));
    program.close();
}

void TestApplication::aLoginRightAfterALogoutIsMade()
{
    RunningProgram program;
    // The worker looks up from a news server that says nothing only now and then.
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    rememberNewsServer(program, silent.serverPort());
    program.open();
    program.application().login()->start(demo(), rightPassword());
    QTRY_VERIFY(silent.hasPendingConnections());
    Q_EMIT program.window().logoutRequested();
    program.application().login()->start(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    program.close();
}

void TestApplication::aRetryWaitsForThePersonWhoTypes()
{
    RunningProgram program;
    program.open();
    program.application().login()->setFirstPause(0); // a retry in each turn of the event loop
    program.service().setFault(fault(corvia::Fault::Kind::Close));
    const auto type = [&program](HServer::State state) {
        if (state == HServer::ServiceLost)
            QTest::keyClicks(program.find<QLineEdit>("password"), QStringLiteral("s"));
    };
    const auto typing = connect(&program.server(), &HServer::stateChanged, this, type);
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::ServiceLost);
    program.service().setFault(fault(corvia::Fault::Kind::None));
    for (int turn = 0; turn < 20; ++turn) {
        QCoreApplication::processEvents();
        QCOMPARE(program.server().connectorState(), HServer::ServiceLost);
    }
    QCOMPARE(program.find<QLineEdit>("password")->text(), rightPassword() + QLatin1Char('s'));
    disconnect(typing);
    program.find<QDialog>("LoginDialog")->reject();
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    program.close();
}

void TestApplication::aRememberedUserCanBeForgottenWithoutALogin()
{
    RunningProgram program;
    program.open();
    auto *logout = program.find<QAction>("halvora.logout");
    QVERIFY(!logout->isEnabled());
    program.logIn(demo(), QStringLiteral("wrong"));
    QTRY_VERIFY(program.find<QLabel>("failure")->isVisible());
    QCOMPARE(program.server().connectorState(), HServer::Disconnected);
    QVERIFY(logout->isEnabled());
    logout->trigger();
    QVERIFY(program.application().connectorPlugin()->connector()->username().isEmpty());
    QVERIFY(!logout->isEnabled());
    program.close();
}

void TestApplication::aLongUserNameDoesNotWidenTheWindow()
{
    RunningProgram program;
    program.open();
    const int before = program.window().minimumSizeHint().width();
    const QString longName(5000, QLatin1Char('x'));
    Connector *connector = program.application().connectorPlugin()->connector();
    connector->setAccount(longName, rightPassword());
    connector->server()->logIn(QStringLiteral("session"));
    QCOMPARE(program.server().connectorState(), HServer::Connected);
    QCoreApplication::processEvents();
    QVERIFY(program.window().minimumSizeHint().width() <= qMax(before, 1000));
    program.close();
}

void TestApplication::theSettingsNameALimitOnlyWhenItIsKnown()
{
    RunningProgram program;
    program.open();
    const auto allows = [&program](const QString &text) {
        Q_EMIT program.window().settingsRequested();
        auto *dialog = program.find<QDialog>("SettingsDialog");
        const QList<QLabel *> labels = dialog->findChildren<QLabel *>();
        const bool found = std::any_of(labels.cbegin(), labels.cend(),
                                       [&text](const QLabel *label) { return label->text().contains(text); });
        delete dialog;
        return found;
    };
    QVERIFY(!allows(QStringLiteral("Your account allows")));
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    QVERIFY(allows(QStringLiteral("Your account allows 20.")));
    // The largest number that a service can tell.
    program.application().connectorPlugin()->connector()->autoSearch()->setCheckInterval(2'147'483'647);
    QVERIFY(allows(QStringLiteral("every 35791395 minutes")));
    program.close();
}

void TestApplication::quittingWhileTheServiceStallsIsQuick()
{
    RunningProgram program;
    program.open();
    program.service().setFault(fault(corvia::Fault::Kind::Stall));
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.service().requests().size(), size_t(1));
    QElapsedTimer timer;
    timer.start();
    program.close();
    qInfo("closed after %lld ms", timer.elapsed());
    QVERIFY(timer.elapsed() < 30'000); // ten times what is promised
}

void TestApplication::callbacksComeOnceAndInTheirOrder()
{
    RunningProgram program;
    program.open(QStringLiteral(GOOD_PLUGIN_DIRECTORY));
    QObject *plugin = PluginLoader::load(QStringLiteral(GOOD_PLUGIN)).instance;
    const auto calls = [plugin] { return plugin->property("calls").toStringList(); };
    QStringList expected{QStringLiteral("create"),
                         QStringLiteral("init"),
                         QStringLiteral("polish"),
                         QStringLiteral("onApplicationStart"),
                         QStringLiteral("onJobControllerRestore"),
                         QStringLiteral("onApplicationStartFinished")};
    QCOMPARE(calls(), expected);
    program.close();
    expected << QStringLiteral("onShutdown");
    QCOMPARE(calls(), expected);
}

void TestApplication::clearingDeletesWhatTheBoxNamesAndNothingElse_data()
{
    QTest::addColumn<QString>("goes");
    QTest::newRow("nothing") << QString();
    QTest::newRow("Bookmarks") << QStringLiteral("backups/pinegate-2*");
    QTest::newRow("Messages") << QStringLiteral("backups/pinegate-messages-2*");
    QTest::newRow("Traffic history") << QStringLiteral("traffic-pinegate.log");
    QTest::newRow("Kept list of newsgroups") << QStringLiteral("pinegate-newsgroups.cache");
}

void TestApplication::clearingDeletesWhatTheBoxNamesAndNothingElse()
{
    QFETCH(QString, goes);
    RunningProgram program;
    program.open();
    program.logIn(demo(), rightPassword());
    QTRY_VERIFY(program.application().connectorPlugin()->connector()->messages()->rowCount() > 0);
    auto *bookmarks = program.window()
                          .findChild<QDockWidget *>(QStringLiteral("CVBookmarksDock"))
                          ->findChild<QAbstractItemView *>();
    QTRY_VERIFY(bookmarks->model()->rowCount() > 0);
    QTRY_VERIFY(isThere(program, QStringLiteral("pinegate-newsgroups.cache")));
    program.close();
    program.open(); // makes the copies of the day
    openClearing(program, QString::fromUtf8(QTest::currentDataTag()));
    const QStringList all = {
        QStringLiteral("backups/pinegate-2*"), QStringLiteral("backups/pinegate-messages-2*"),
        QStringLiteral("traffic-pinegate.log"), QStringLiteral("pinegate-newsgroups.cache")};
    for (const QString &pattern : all)
        QVERIFY2(isThere(program, pattern), qPrintable(pattern));
    program.find<QPushButton>("clear")->click();
    for (const QString &pattern : all)
        QVERIFY2(isThere(program, pattern) == (pattern != goes), qPrintable(pattern));
    const int messages = program.application().connectorPlugin()->connector()->messages()->rowCount();
    QCOMPARE(messages == 0, goes == all.at(1));
    QCOMPARE(program.window()
                     .findChild<QDockWidget *>(QStringLiteral("CVBookmarksDock"))
                     ->findChild<QAbstractItemView *>()
                     ->model()
                     ->rowCount() == 0,
             goes == all.at(0));
    program.close();
}

void TestApplication::everyBoxForPrivateDataSaysWhatGoes()
{
    RunningProgram program;
    program.open();
    openClearing(program, QString());
    const auto *dialog = program.find<QDialog>("ClearDataDialog");
    QStringList shown;
    const QList<QLabel *> labels = dialog->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->isVisible())
            shown.append(label->text());
    }
    const QList<QCheckBox *> boxes = dialog->findChildren<QCheckBox *>();
    QCOMPARE(boxes.size(), 5);
    for (const QCheckBox *box : boxes) {
        QVERIFY2(!box->accessibleDescription().isEmpty(), qPrintable(box->text()));
        QVERIFY2(shown.contains(box->accessibleDescription()), qPrintable(box->text()));
    }
    program.find<QDialog>("ClearDataDialog")->close();
    // What is chosen on the page of the settings is remembered.
    const auto box = [&program] {
        return program.find<QWidget>("privateData")->findChild<QCheckBox *>(QStringLiteral("traffic"));
    };
    QVERIFY(box()->isChecked());
    box()->setChecked(false);
    program.find<QDialog>("SettingsDialog")->accept();
    program.close();
    program.open();
    Q_EMIT program.window().settingsRequested();
    QVERIFY(!box()->isChecked());
    box()->setChecked(true);
    program.find<QDialog>("SettingsDialog")->accept();
    program.close();
}

void TestApplication::partsAreForgottenBeforeTheProviderGoes()
{
    RunningProgram program;
    program.open();
    Core *core = program.application().core();
    RecordingPrivateData data({});
    NoSettings settings;
    NoBookmarks bookmarks;
    core->privateData()->registerPrivateData(&data);
    core->settingsRegistry()->registerSettings(&settings);
    core->plugin()->setBookmarkProvider(&bookmarks);
    int gone = 0;
    connect(program.application().connectorPlugin(), &QObject::destroyed, this, [core, &gone] {
        ++gone;
        QVERIFY(core->privateData()->parts().isEmpty());
        QVERIFY(core->settingsRegistry()->parts().isEmpty());
        QVERIFY(!core->plugin()->bookmarkProvider());
    });
    program.close();
    QCOMPARE(gone, 1);
}

void TestApplication::theLanguageChangesWhileItRuns()
{
    RunningProgram program;
    program.open();
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    LocaleManager *locale = program.application().core()->locale();
    locale->setTranslationDirectories({QStringLiteral(TEST_CATALOGUES)});
    QVERIFY(locale->setLanguage(QStringLiteral("eo")));
    QTRY_COMPARE(program.find<QDockWidget>("InfoToolWidget")->windowTitle(), QStringLiteral("Via konto"));
    QCOMPARE(program.application().connectorPlugin()->aboutAction()->text(), QStringLiteral("Pri"));
    QTRY_COMPARE(program.find<QMenu>("halvora.helpMenu")->title(), QStringLiteral("&Helpo"));
    QCOMPARE(program.find<QAction>("halvora.settings")->text(), QStringLiteral("&Agordoj…"));
    QVERIFY(statusBarSays(program.window(), QStringLiteral("Ensalutinta kiel demo – kontoservo localhost")));
    const auto homeSays = [&program](const QString &text) {
        const QList<QLabel *> labels = program.window().centralWidget()->findChildren<QLabel *>();
        return std::any_of(labels.cbegin(), labels.cend(),
                           [&text](const QLabel *label) { return label->text().startsWith(text); });
    };
    QVERIFY(homeSays(QStringLiteral("Ensalutinta kiel demo")));
    QVERIFY(homeSays(QStringLiteral("Novaĵserviloj: ")));
    Q_EMIT program.window().settingsRequested();
    QCOMPARE(program.find<QDialog>("SettingsDialog")->windowTitle(), QStringLiteral("Agordoj"));
    delete program.find<QDialog>("SettingsDialog");
    Q_EMIT program.window().loginRequested();
    QCOMPARE(program.find<QDialog>("LoginDialog")->windowTitle(), QStringLiteral("Ensaluti"));
    QVERIFY(locale->setLanguage(QStringLiteral("en")));
    QTRY_COMPARE(program.find<QDockWidget>("InfoToolWidget")->windowTitle(), QStringLiteral("Your Account"));
    QTRY_COMPARE(program.find<QDialog>("LoginDialog")->windowTitle(), QStringLiteral("Log In"));
    QVERIFY(statusBarSays(program.window(), QStringLiteral("Logged in as demo – account service localhost")));
    program.close();
}

void TestApplication::theAboutActionStandsInTheHelpMenu()
{
    RunningProgram program;
    program.open();
    QAction *about = program.application().connectorPlugin()->aboutAction();
    QCOMPARE(about->text(), QStringLiteral("About"));
    bool found = false;
    const QList<QMenu *> menus = program.window().menuBar()->findChildren<QMenu *>();
    for (const QMenu *menu : menus)
        found = found || menu->actions().contains(about);
    QVERIFY(found);
    program.close();
}

QTEST_MAIN(TestApplication)
#include "tst_application.moc"
