// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "heartbeat.h"
#include "hostilenntpserver.h"
#include "runningprogram.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/mainwindow.h>

#include <QDialog>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

Q_DECLARE_METATYPE(corvia::Fault)

/// Whatever the other side does, the window answers and the login ends. The longest pause of the window is
/// printed, not judged: it depends on the machine.
class TestHeartbeat : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theWindowAnswersWhateverTheServiceDoes_data();
    void theWindowAnswersWhateverTheServiceDoes();
    void theWindowAnswersWhileAFolderHasNoName();
    void theWindowAnswersWhileNewsServersHang();
    void theWindowClosesWhileNewsServersHang();
};

namespace {

corvia::Fault fault(corvia::Fault::Kind kind, int number, const std::string &text = std::string())
{
    corvia::Fault result;
    result.kind = kind;
    result.number = number;
    result.text = text;
    return result;
}

std::string repeated(const std::string &text, int times)
{
    std::string result;
    for (int i = 0; i < times; ++i)
        result += text;
    return result;
}

void tellHosts(const QString &profile, const std::vector<std::unique_ptr<HostileNntpServer>> &servers)
{
    QSettings settings(profile + QStringLiteral("/halvora.ini"), QSettings::IniFormat);
    settings.beginWriteArray(QStringLiteral("Account/NntpHosts"), int(servers.size()));
    for (int i = 0; i < int(servers.size()); ++i) {
        settings.setArrayIndex(i);
        settings.setValue(QStringLiteral("Host"), QStringLiteral("127.0.0.1"));
        settings.setValue(QStringLiteral("Port"), servers.at(size_t(i))->port());
        settings.setValue(QStringLiteral("Ssl"), false);
    }
    settings.endArray();
}

std::vector<std::unique_ptr<HostileNntpServer>> silentServers()
{
    std::vector<std::unique_ptr<HostileNntpServer>> servers;
    for (int i = 0; i < 6; ++i)
        servers.push_back(std::make_unique<HostileNntpServer>([](Conversation &) {}));
    return servers;
}

} // namespace

void TestHeartbeat::theWindowAnswersWhateverTheServiceDoes_data()
{
    using Kind = corvia::Fault::Kind;
    QTest::addColumn<corvia::Fault>("whatHappens");
    QTest::newRow("nothing bad") << fault(Kind::None, 0);
    QTest::newRow("stalls") << fault(Kind::Stall, 0);
    QTest::newRow("drips") << fault(Kind::Drip, 20);
    QTest::newRow("floods") << fault(Kind::Flood, 64 << 20);
    QTest::newRow("floods with headers") << fault(Kind::HeaderFlood, 0);
    QTest::newRow("nests") << fault(Kind::Body, 0, repeated("<a>", 1'000'000));
    QTest::newRow("attributes") << fault(Kind::Body, 0, "<reply" + repeated(" a='1'", 40'000) + "/>");
    QTest::newRow("entities") << fault(Kind::Body, 0,
                                       "<!DOCTYPE r [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '" +
                                           repeated("&a;", 1000) + "'>]><reply>" + repeated("&b;", 1000) +
                                           "</reply>");
    QTest::newRow("closes") << fault(Kind::Close, 0);
}

void TestHeartbeat::theWindowAnswersWhateverTheServiceDoes()
{
    QFETCH(corvia::Fault, whatHappens);
    RunningProgram program;
    program.open();
    program.server().setRequestDeadline(1500);
    program.service().setFault(whatHappens);
    const Heartbeat heartbeat;
    program.logIn(QStringLiteral("demo"), QStringLiteral("pinegate"));
    QCOMPARE(program.server().connectorState(), HServer::Connecting);
    QTRY_VERIFY_WITH_TIMEOUT(program.server().connectorState() != HServer::Connecting, 20'000);
    QTRY_VERIFY(heartbeat.beats() > 0);
    qInfo("longest gap %.1f ms in %d beats", heartbeat.longestGap(), heartbeat.beats());
    const bool good = whatHappens.kind == corvia::Fault::Kind::None;
    QCOMPARE(program.server().connectorState(), good ? HServer::Connected : HServer::ServiceLost);
    program.close();
}

// The one that reads the reply stays there until it is interrupted.
void TestHeartbeat::theWindowAnswersWhileAFolderHasNoName()
{
    RunningProgram program;
    program.open();
    corvia::Fault nameless = fault(corvia::Fault::Kind::Element, 0,
                                   "<bookmarks><folder><newsgroup>a.b</newsgroup></folder></bookmarks>");
    nameless.request = "bookmarks";
    program.service().setFault(nameless);
    program.logIn(QStringLiteral("demo"), QStringLiteral("pinegate"));
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    QTRY_COMPARE(program.service().requests().size(), size_t(2));
    const Heartbeat heartbeat;
    QTRY_VERIFY(heartbeat.beats() > 20);
    qInfo("longest gap %.1f ms in %d beats", heartbeat.longestGap(), heartbeat.beats());
    QElapsedTimer timer;
    timer.start();
    program.close();
    qInfo("closed after %lld ms", timer.elapsed());
    QVERIFY(timer.elapsed() < 30'000);
}

void TestHeartbeat::theWindowAnswersWhileNewsServersHang()
{
    const auto servers = silentServers();
    RunningProgram program;
    tellHosts(program.profile(), servers);
    program.open();
    program.server().setRequestDeadline(1500);
    const Heartbeat heartbeat;
    const QSignalSpy failed(&program.server(), &HServer::requestFailed);
    program.logIn(QStringLiteral("demo"), QStringLiteral("pinegate"));
    QTRY_COMPARE_WITH_TIMEOUT(failed.count(), 1, 20'000);
    qInfo("longest gap %.1f ms in %d beats", heartbeat.longestGap(), heartbeat.beats());
    QVERIFY(heartbeat.beats() > 0);
    QVERIFY(program.service().requests().empty());
    program.close();
}

void TestHeartbeat::theWindowClosesWhileNewsServersHang()
{
    const auto servers = silentServers();
    RunningProgram program;
    tellHosts(program.profile(), servers);
    program.open();
    program.logIn(QStringLiteral("demo"), QStringLiteral("pinegate"));
    QCOMPARE(program.server().connectorState(), HServer::Connecting);
    QElapsedTimer timer;
    timer.start();
    program.close();
    qInfo("closed after %lld ms", timer.elapsed());
    QVERIFY(timer.elapsed() < 30'000); // ten times what is promised
}

QTEST_MAIN(TestHeartbeat)
#include "tst_heartbeat.moc"
