// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "privatebus.h"
#include "messagenotifier.h"
#include "recordingdesktop.h"
#include "runningprogram.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/core.h>
#include <halvora/hmessagemanager.h>
#include <halvora/localemanager.h>

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QListView>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

#include <memory>

/// The whole program beside a real bus: which messages of the account reach the desktop.
class TestMessageNotification : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void aNewMessageIsShownWithItsText();
    void severalMessagesAreCounted();
    void nothingIsShownWhileTheWindowIsActive();
    void whatIsReadIsNotShown();
    void theSettingsTurnItOff();
    void aResetTurnsItOnAgain();
    void aClickBringsWindowAndMessagesToTheFront();

private:
    void lookElsewhere();
    void say(const char *uid, const char *text, bool read = false);
    void arrive();
    QCheckBox *openSettings();
    void closeSettings();

    PrivateBus m_bus;
    std::unique_ptr<RecordingDesktop> m_desktop;
    std::unique_ptr<RunningProgram> m_program;
    std::unique_ptr<QWidget> m_otherWindow;
};

namespace {

constexpr int patience = 60'000; // milliseconds

} // namespace

void TestMessageNotification::initTestCase()
{
    QCoreApplication::setApplicationName(QStringLiteral("Halvora"));
    QVERIFY(!m_bus.address().isEmpty());
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.address().toUtf8());
}

void TestMessageNotification::init()
{
    m_desktop = std::make_unique<RecordingDesktop>(
        m_bus.connectAs(QString::fromLatin1(QTest::currentTestFunction())));
    m_program = std::make_unique<RunningProgram>();
    m_program->open();
    m_program->application().core()->locale()->setTranslationDirectories({QStringLiteral(CATALOGUES)});
    QVERIFY(m_program->application().core()->locale()->setLanguage(QStringLiteral("en")));
    // The messages that come with the login are none that a test brings.
    QSettings &settings = m_program->application().core()->settings();
    MessageNotifier::setWanted(settings, false);
    m_program->logIn(QStringLiteral("demo"), QStringLiteral("pinegate"));
    QTRY_COMPARE_WITH_TIMEOUT(m_program->server().connectorState(), HServer::Connected, patience);
    QTRY_VERIFY_WITH_TIMEOUT(!m_program->find<QDialog>("LoginDialog"), patience);
    QTRY_VERIFY_WITH_TIMEOUT(
        m_program->application().connectorPlugin()->connector()->messages()->rowCount() > 0, patience);
    MessageNotifier::reset(settings);
    lookElsewhere();
    m_desktop->shown.clear();
}

void TestMessageNotification::cleanup()
{
    m_otherWindow.reset();
    m_program->close();
    m_program.reset();
    m_desktop.reset();
}

void TestMessageNotification::lookElsewhere()
{
    m_otherWindow = std::make_unique<QWidget>();
    m_otherWindow->show();
    m_otherWindow->activateWindow();
    QTRY_VERIFY_WITH_TIMEOUT(m_otherWindow->isActiveWindow(), patience);
    QVERIFY(!m_program->window().isActiveWindow());
}

void TestMessageNotification::say(const char *uid, const char *text, bool read)
{
    corvia::Message message;
    message.uid = uid;
    message.text = text;
    message.read = read;
    m_program->service().addMessage("demo", message);
}

// Messages come along with any reply.
void TestMessageNotification::arrive()
{
    const HMessageManager *messages = m_program->application().connectorPlugin()->connector()->messages();
    QSignalSpy arrived(messages, &HMessageManager::newMessagesArrived);
    m_program->application().connectorPlugin()->refreshStatus();
    QTRY_COMPARE_WITH_TIMEOUT(arrived.count(), 1, patience);
}

QCheckBox *TestMessageNotification::openSettings()
{
    Q_EMIT m_program->window().settingsRequested();
    return m_program->find<QCheckBox>("notifications");
}

void TestMessageNotification::closeSettings()
{
    auto *dialog = m_program->find<QDialog>("SettingsDialog");
    dialog->findChild<QDialogButtonBox *>(QString(), Qt::FindDirectChildrenOnly)
        ->button(QDialogButtonBox::Ok)
        ->click();
    QTRY_VERIFY_WITH_TIMEOUT(!m_program->find<QDialog>("SettingsDialog"), patience);
    lookElsewhere();
}

void TestMessageNotification::aNewMessageIsShownWithItsText()
{
    say("new-1", "Maintenance <b>tonight</b>");
    arrive();
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 1, patience);
    QCOMPARE(m_desktop->shown.first().title, QStringLiteral("New message"));
    QCOMPARE(m_desktop->shown.first().body, QStringLiteral("Maintenance &lt;b&gt;tonight&lt;/b&gt;"));
    say("new-2", "It is over");
    arrive();
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 2, patience);
    QCOMPARE(m_desktop->shown.last().title, QStringLiteral("New message")); // the one before was told
    QCOMPARE(m_desktop->shown.last().body, QStringLiteral("It is over"));
    QVERIFY(m_desktop->shown.last().replaced != 0);
}

void TestMessageNotification::severalMessagesAreCounted()
{
    say("new-1", "one");
    say("new-2", "two");
    say("new-3", "three", true);
    arrive();
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 1, patience);
    QCOMPARE(m_desktop->shown.first().title, QStringLiteral("2 new messages"));
    QCOMPARE(m_desktop->shown.first().body, QString());
}

void TestMessageNotification::nothingIsShownWhileTheWindowIsActive()
{
    m_program->window().activateWindow();
    QTRY_VERIFY_WITH_TIMEOUT(m_program->window().isActiveWindow(), patience);
    say("new-1", "seen in the window");
    arrive();
    lookElsewhere();
    say("new-2", "not seen");
    arrive();
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 1, patience);
    QCOMPARE(m_desktop->shown.first().body, QStringLiteral("not seen"));
}

void TestMessageNotification::whatIsReadIsNotShown()
{
    say("new-1", "read elsewhere", true);
    arrive();
    say("new-2", "unread");
    arrive();
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 1, patience);
    QCOMPARE(m_desktop->shown.first().body, QStringLiteral("unread"));
}

void TestMessageNotification::theSettingsTurnItOff()
{
    QCheckBox *box = openSettings();
    QVERIFY(box->isVisible());
    QVERIFY(box->isChecked());
    box->setChecked(false);
    closeSettings();
    say("new-1", "not wanted");
    arrive();
    box = openSettings();
    QVERIFY(!box->isChecked());
    box->setChecked(true);
    closeSettings();
    say("new-2", "wanted");
    arrive();
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 1, patience);
    QCOMPARE(m_desktop->shown.first().body, QStringLiteral("wanted"));
}

void TestMessageNotification::aResetTurnsItOnAgain()
{
    openSettings()->setChecked(false);
    closeSettings();
    QCheckBox *box = openSettings();
    m_program->find<QPushButton>("resetSettings")->click();
    m_program->find<QPushButton>("reset")->click();
    QVERIFY(box->isChecked());
    closeSettings();
    say("new-1", "wanted");
    arrive();
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 1, patience);
}

void TestMessageNotification::aClickBringsWindowAndMessagesToTheFront()
{
    auto *panel = new QDockWidget;
    auto *view = new QListView;
    view->setModel(m_program->application().connectorPlugin()->connector()->messages());
    panel->setWidget(view);
    m_program->window().addToolWidget(Qt::BottomDockWidgetArea, panel);
    panel->hide();
    m_program->window().showMinimized();
    const uint number = m_desktop->nextNumber();
    say("new-1", "one");
    arrive();
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 1, patience);
    panel->hide(); // whatever the arrival made of it
    Q_EMIT m_desktop->ActionInvoked(number, QStringLiteral("default"));
    QTRY_VERIFY_WITH_TIMEOUT(m_program->window().isActiveWindow(), patience);
    QVERIFY(!m_program->window().isMinimized());
    QVERIFY(panel->isVisible());
}

QTEST_MAIN(TestMessageNotification)
#include "tst_messagenotification.moc"
