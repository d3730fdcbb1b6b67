// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "keyring.h"
#include "passwordstore.h"
#include "privatebus.h"
#include "runningprogram.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLibrary>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QtTest>

// In this order: a keyring is unlocked, then locked, then gone for the rest of the process.
class TestKeyring : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void aKeptPasswordIsFoundAgainAtTheNextStart();
    void aPasswordThatTheServiceRefusesIsAskedFor();
    void aLogoutTakesThePasswordOutOfTheKeyring();
    void aLogoutAfterAnotherNameWasTriedTakesThePasswordOutToo();
    void aPasswordThatWasAskedForBeforeALogoutIsKeptAtTheNextLogin();
    void aClearedPasswordIsNotKeptAgain();
    void aProgramThatEndsAtAPromptEndsWell();
    void aCancelledPromptMeansThatNothingIsKnown();
    void aProgramThatEndsWhileTheKeyringIsSilentEndsWell();
    void aSilentKeyringHindersNoLogin();
    void withoutTheLibraryNothingIsKept();

private:
    PrivateBus m_bus;
    std::unique_ptr<Keyring> m_keyring;
    bool m_hasLibrary = false;
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

void rememberUser(const RunningProgram &program)
{
    QSettings settings(program.profile() + QStringLiteral("/halvora.ini"), QSettings::IniFormat);
    settings.setValue(QStringLiteral("Account/UserName"), demo());
}

} // namespace

// Before the first word to any bus: a test has neither the machine's buses nor its keyring.
void TestKeyring::initTestCase()
{
    for (const char *bus : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"})
        QCOMPARE(qgetenv(bus), QByteArray("disabled:"));
    QCoreApplication::setApplicationName(QStringLiteral("Halvora"));
    QVERIFY(!m_bus.address().isEmpty());
    m_keyring = std::make_unique<Keyring>(m_bus.address());
    m_hasLibrary = QLibrary(QStringLiteral("secret-1"), 0).load();
    QCOMPARE(m_hasLibrary, !qEnvironmentVariableIsSet("HALVORA_WITHOUT_LIBSECRET"));
    if (m_hasLibrary)
        QVERIFY(m_keyring->start());
}

void TestKeyring::aKeptPasswordIsFoundAgainAtTheNextStart()
{
    if (!m_hasLibrary)
        QSKIP("There is no library for keyrings.");
    RunningProgram program;
    program.open();
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    program.close();
    QTRY_COMPARE(m_keyring->lookup(demo()), rightPassword());

    program.open();
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    QVERIFY(!program.find<QDialog>("LoginDialog"));
    program.close();
}

void TestKeyring::aPasswordThatTheServiceRefusesIsAskedFor()
{
    if (!m_hasLibrary)
        QSKIP("There is no library for keyrings.");
    QVERIFY(m_keyring->store(demo(), QStringLiteral("an older one")));
    RunningProgram program;
    rememberUser(program);
    program.open();
    QTRY_VERIFY(program.find<QDialog>("LoginDialog"));
    QVERIFY(program.find<QDialog>("LoginDialog")->isVisible());
    QCOMPARE(program.find<QLineEdit>("user")->text(), demo());
    QVERIFY(!program.find<QLabel>("failure")->text().isEmpty());
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    QTRY_COMPARE(m_keyring->lookup(demo()), rightPassword());
    QCOMPARE(m_keyring->count(demo()), 1);
    program.close();
}

void TestKeyring::aLogoutTakesThePasswordOutOfTheKeyring()
{
    if (!m_hasLibrary)
        QSKIP("There is no library for keyrings.");
    QVERIFY(m_keyring->store(demo(), rightPassword()));
    RunningProgram program;
    rememberUser(program);
    program.open();
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    Q_EMIT program.window().logoutRequested();
    program.close();
    QTRY_COMPARE(m_keyring->lookup(demo()), QString());
}

void TestKeyring::aLogoutAfterAnotherNameWasTriedTakesThePasswordOutToo()
{
    if (!m_hasLibrary)
        QSKIP("There is no library for keyrings.");
    QVERIFY(m_keyring->store(demo(), rightPassword()));
    RunningProgram program;
    rememberUser(program);
    program.open();
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    program.application().connectorPlugin()->connector()->setAccount(QStringLiteral("reseller"), QString());
    Q_EMIT program.window().logoutRequested();
    program.close();
    QTRY_COMPARE(m_keyring->lookup(demo()), QString());
}

void TestKeyring::aPasswordThatWasAskedForBeforeALogoutIsKeptAtTheNextLogin()
{
    if (!m_hasLibrary)
        QSKIP("There is no library for keyrings.");
    QVERIFY(m_keyring->store(demo(), rightPassword()));
    PasswordStore passwords;
    const QSignalSpy found(&passwords, &PasswordStore::found);
    passwords.look(demo());
    passwords.forget(demo());
    QTRY_COMPARE(m_keyring->lookup(demo()), QString());
    passwords.keep(demo(), rightPassword());
    QTRY_COMPARE(m_keyring->lookup(demo()), rightPassword());
    QCOMPARE(found.count(), 0);
}

void TestKeyring::aProgramThatEndsWhileTheKeyringIsSilentEndsWell()
{
    m_keyring->stop();
    SilentKeyring keyring(m_bus.connectAs(QStringLiteral("silent")));
    RunningProgram program;
    rememberUser(program);
    program.open();
    if (m_hasLibrary)
        QTRY_VERIFY(!keyring.calls.isEmpty());
    program.close();
    // The late reply finds its job, and the job finds no program any more.
    keyring.refuseAll();
    program.open();
    if (m_hasLibrary)
        QTRY_VERIFY(!keyring.calls.isEmpty());
    program.close();
}

void TestKeyring::aSilentKeyringHindersNoLogin()
{
    m_keyring->stop();
    SilentKeyring keyring(m_bus.connectAs(QStringLiteral("mute")));
    RunningProgram program;
    rememberUser(program);
    program.open();
    if (m_hasLibrary)
        QTRY_VERIFY(!keyring.calls.isEmpty());
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    // Now something is kept, too; nothing of it can be found again.
    Q_EMIT program.window().logoutRequested();
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    program.close();
}

void TestKeyring::aClearedPasswordIsNotKeptAgain()
{
    if (!m_hasLibrary)
        QSKIP("There is no library for keyrings.");
    RunningProgram program;
    program.open();
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    QTRY_COMPARE(m_keyring->lookup(demo()), rightPassword());
    Q_EMIT program.window().settingsRequested();
    program.find<QPushButton>("clearPrivateData")->click();
    auto *dialog = program.find<QDialog>("ClearDataDialog");
    QVERIFY(dialog->findChild<QCheckBox *>(QStringLiteral("password"))->isChecked());
    dialog->findChild<QPushButton *>(QStringLiteral("clear"))->click();
    QTRY_COMPARE(m_keyring->lookup(demo()), QString());
    QCOMPARE(program.server().connectorState(), HServer::Connected);
    program.close();

    PasswordStore passwords;
    passwords.keep(demo(), rightPassword());
    passwords.discard(demo(), rightPassword());
    passwords.keep(demo(), rightPassword()); // a login anew
    passwords.keep(QStringLiteral("ada"), rightPassword());
    QTRY_COMPARE(m_keyring->lookup(QStringLiteral("ada")), rightPassword());
    QCOMPARE(m_keyring->lookup(demo()), QString());
}

void TestKeyring::aProgramThatEndsAtAPromptEndsWell()
{
    if (!m_hasLibrary)
        QSKIP("There is no library for keyrings.");
    QVERIFY(m_keyring->store(demo(), rightPassword()));
    m_keyring->lock();
    Prompter prompter(m_bus.connectAs(QStringLiteral("open prompt")));
    RunningProgram program;
    rememberUser(program);
    program.open();
    QTRY_VERIFY(prompter.isOpen());
    program.close();
    prompter.cancel();
    program.open();
    QTRY_VERIFY(prompter.isOpen());
    prompter.cancel();
    program.close();
}

void TestKeyring::aCancelledPromptMeansThatNothingIsKnown()
{
    if (!m_hasLibrary)
        QSKIP("There is no library for keyrings.");
    m_keyring->lock();
    Prompter prompter(m_bus.connectAs(QStringLiteral("cancelled prompt")));
    RunningProgram program;
    rememberUser(program);
    program.open();
    QSignalSpy unknown(program.application().login(), &LoginController::accountUnknown);
    while (unknown.isEmpty()) {
        QTRY_VERIFY(prompter.isOpen() || !unknown.isEmpty());
        if (prompter.isOpen())
            prompter.cancel();
    }
    QCOMPARE(program.server().connectorState(), HServer::Disconnected);
    const int before = prompter.prompts;
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    QTRY_VERIFY(prompter.prompts > before);
    prompter.cancel();
    program.close();
}

void TestKeyring::withoutTheLibraryNothingIsKept()
{
    if (m_hasLibrary)
        QSKIP("There is a library for keyrings.");
    RunningProgram program;
    program.open();
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    program.close();
    program.open();
    QSignalSpy unknown(program.application().login(), &LoginController::accountUnknown);
    QTRY_COMPARE(unknown.count(), 1);
    QCOMPARE(program.application().connectorPlugin()->connector()->username(), demo());
    QCOMPARE(program.server().connectorState(), HServer::Disconnected);
    program.logIn(demo(), rightPassword());
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    Q_EMIT program.window().logoutRequested();
    program.close();
}

QTEST_MAIN(TestKeyring)

#include "tst_keyring.moc"
