// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "instanceline.h"
#include "instanceserver.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <vector>

namespace {

constexpr int aMinute = 60'000;

using Sockets = std::vector<std::unique_ptr<QLocalSocket>>;

int openOnes(const Sockets &sockets)
{
    int count = 0;
    for (const auto &socket : sockets)
        count += socket->state() == QLocalSocket::ConnectedState ? 1 : 0;
    return count;
}

} // namespace

/// The socket at which later starts of the program call, and what else may call there.
class TestInstanceServer : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void aCallIsHeardAndAnswered_data();
    void aCallIsHeardAndAnswered();
    void aCallInPiecesIsHeard();
    void onlyTheFirstLineIsHeard();
    void whatIsNoCallIsNotAnswered_data();
    void whatIsNoCallIsNotAnswered();
    void aCallerWhoSaysNothingIsLetGo_data();
    void aCallerWhoSaysNothingIsLetGo();
    void onlySoManyAreHeardAtOnce();
    void aCallIsHeardAfterAHundredAtOnce();
    void aCallerWhoLeavesMakesRoom();
    void theSocketIsForItsUserAlone();
    void aSocketThatWasLeftBehindIsReplaced();
    void aPlaceThatIsNoneIsNoSocket_data();
    void aPlaceThatIsNoneIsNoSocket();
    void eachFolderHasASocketOfItsOwn();

private:
    std::unique_ptr<QLocalSocket> connected();
    QString path() const { return m_folder->filePath(QStringLiteral("socket")); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<InstanceServer> m_server;
    std::unique_ptr<QSignalSpy> m_calls;
};

void TestInstanceServer::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_server = std::make_unique<InstanceServer>();
    m_server->setPatience(std::chrono::hours(1)); // longer than any test waits
    m_calls = std::make_unique<QSignalSpy>(m_server.get(), &InstanceServer::called);
    QVERIFY2(m_server->listen(path()), qPrintable(m_server->errorString()));
}

std::unique_ptr<QLocalSocket> TestInstanceServer::connected()
{
    auto socket = std::make_unique<QLocalSocket>();
    socket->connectToServer(path());
    return socket;
}

void TestInstanceServer::aCallIsHeardAndAnswered_data()
{
    QTest::addColumn<QString>("argument");
    QTest::newRow("to the front") << QString();
    QTest::newRow("a link") << QStringLiteral("pinegate://details?filegroup=abc");
    QTest::newRow("a file") << QStringLiteral("/home/a b/\u00e4 \U0001f333.nzb");
    QTest::newRow("the longest") << QString(InstanceLine::longest - 11, QLatin1Char('a'));
}

void TestInstanceServer::aCallIsHeardAndAnswered()
{
    QFETCH(QString, argument);
    const auto socket = connected();
    socket->write(InstanceLine::write(argument));
    QTRY_COMPARE_WITH_TIMEOUT(m_calls->count(), 1, aMinute);
    QCOMPARE(m_calls->constFirst().constFirst().toString(), argument);
    QTRY_COMPARE_WITH_TIMEOUT(socket->state(), QLocalSocket::UnconnectedState, aMinute);
    QCOMPARE(socket->readAll(), InstanceLine::answer());
}

void TestInstanceServer::aCallInPiecesIsHeard()
{
    const auto socket = connected();
    const QByteArray line = InstanceLine::write(QStringLiteral("/tmp/a.nzb"));
    for (const char byte : line) {
        socket->write(&byte, 1);
        socket->flush();
        QCoreApplication::processEvents();
    }
    QTRY_COMPARE_WITH_TIMEOUT(m_calls->count(), 1, aMinute);
    QCOMPARE(m_calls->constFirst().constFirst().toString(), QStringLiteral("/tmp/a.nzb"));
}

void TestInstanceServer::onlyTheFirstLineIsHeard()
{
    const auto socket = connected();
    socket->write(InstanceLine::write(QStringLiteral("/tmp/a.nzb")) +
                  InstanceLine::write(QStringLiteral("/tmp/b.nzb")));
    QTRY_COMPARE_WITH_TIMEOUT(socket->state(), QLocalSocket::UnconnectedState, aMinute);
    QCOMPARE(m_calls->count(), 1);
    QCOMPARE(socket->readAll(), InstanceLine::answer());
}

void TestInstanceServer::whatIsNoCallIsNotAnswered_data()
{
    QTest::addColumn<QByteArray>("said");
    QTest::newRow("an empty line") << QByteArray("\n");
    QTest::newRow("a link alone") << QByteArray("pinegate://details?filegroup=abc\n");
    QTest::newRow("another version") << QByteArray("halvora 2 /tmp/a.nzb\n");
    QTest::newRow("no blank") << QByteArray("halvora 1\n");
    QTest::newRow("a page") << QByteArray("GET / HTTP/1.1\r\n\r\n");
    QTest::newRow("not UTF-8") << QByteArray("halvora 1 /tmp/\xff.nzb\n");
    QTest::newRow("overlong UTF-8") << QByteArray("halvora 1 /tmp/\xc0\xaf.nzb\n");
    QTest::newRow("zeros") << QByteArray(100, '\0') + '\n';
    QTest::newRow("bytes of every kind") << QByteArray::fromHex("00ff80fe1b5b324a0d0a");
    QTest::newRow("a line that is too long") << "halvora 1 " + QByteArray(InstanceLine::longest, 'a') + '\n';
    QTest::newRow("a megabyte without an end") << "halvora 1 " + QByteArray(1 << 20, 'a');
    QTest::newRow("a megabyte of lines") << QByteArray(1 << 20, '\n');
}

void TestInstanceServer::whatIsNoCallIsNotAnswered()
{
    QFETCH(QByteArray, said);
    const auto socket = connected();
    socket->write(said);
    QTRY_COMPARE_WITH_TIMEOUT(socket->state(), QLocalSocket::UnconnectedState, aMinute);
    QCOMPARE(socket->readAll(), QByteArray());
    QCOMPARE(m_calls->count(), 0);
}

void TestInstanceServer::aCallerWhoSaysNothingIsLetGo_data()
{
    QTest::addColumn<QByteArray>("said");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("half a call") << QByteArray("halvora 1 /tmp/a");
}

void TestInstanceServer::aCallerWhoSaysNothingIsLetGo()
{
    QFETCH(QByteArray, said);
    m_server->setPatience(std::chrono::milliseconds(50));
    const auto socket = connected();
    socket->write(said);
    QTRY_COMPARE_WITH_TIMEOUT(socket->state(), QLocalSocket::UnconnectedState, aMinute);
    QCOMPARE(socket->readAll(), QByteArray());
    QCOMPARE(m_calls->count(), 0);
}

void TestInstanceServer::onlySoManyAreHeardAtOnce()
{
    Sockets sockets;
    for (int i = 0; i < 100; ++i)
        sockets.push_back(connected());
    QTRY_COMPARE_WITH_TIMEOUT(openOnes(sockets), InstanceServer::mostConnections, aMinute);
    QCOMPARE(m_server->findChildren<QLocalSocket *>().size(), InstanceServer::mostConnections);
    for (const auto &socket : sockets) {
        if (socket->state() == QLocalSocket::ConnectedState)
            socket->write(InstanceLine::write(QString()));
    }
    QTRY_COMPARE_WITH_TIMEOUT(m_calls->count(), InstanceServer::mostConnections, aMinute);
}

void TestInstanceServer::aCallIsHeardAfterAHundredAtOnce()
{
    m_server->setPatience(std::chrono::milliseconds(50));
    Sockets sockets;
    for (int i = 0; i < 100; ++i)
        sockets.push_back(connected());
    QTRY_COMPARE_WITH_TIMEOUT(openOnes(sockets), 0, aMinute);
    m_server->setPatience(std::chrono::hours(1));
    const auto socket = connected();
    socket->write(InstanceLine::write(QString()));
    QTRY_COMPARE_WITH_TIMEOUT(m_calls->count(), 1, aMinute);
}

void TestInstanceServer::aCallerWhoLeavesMakesRoom()
{
    for (int i = 0; i < 3 * InstanceServer::mostConnections; ++i) {
        const auto socket = connected();
        QVERIFY(socket->waitForConnected(aMinute));
        QTRY_COMPARE_WITH_TIMEOUT(m_server->findChildren<QLocalSocket *>().size(), 1, aMinute);
        socket->abort();
        QTRY_COMPARE_WITH_TIMEOUT(m_server->findChildren<QLocalSocket *>().size(), 0, aMinute);
    }
}

void TestInstanceServer::theSocketIsForItsUserAlone()
{
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                        QFile::WriteOther | QFile::ExeOther;
    QVERIFY((QFile::permissions(path()) & others) == 0);
}

void TestInstanceServer::aSocketThatWasLeftBehindIsReplaced()
{
    // As a program that is killed leaves it: another name of the socket stays when its server has gone.
    m_server.reset();
    auto before = std::make_unique<QLocalServer>();
    QVERIFY(before->listen(m_folder->filePath(QStringLiteral("first name"))));
    QVERIFY(QFile::rename(m_folder->filePath(QStringLiteral("first name")), path()));
    before.reset();
    QVERIFY(QFileInfo::exists(path()) || QFile::exists(path()));
    init();
    const auto socket = connected();
    socket->write(InstanceLine::write(QString()));
    QTRY_COMPARE_WITH_TIMEOUT(m_calls->count(), 1, aMinute);
}

void TestInstanceServer::aPlaceThatIsNoneIsNoSocket_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("none") << QString();
    QTest::newRow("a folder that is missing") << QStringLiteral("/nowhere/socket");
    QTest::newRow("a long path") << QStringLiteral("/tmp/") + QString(200, QLatin1Char('a'));
}

void TestInstanceServer::aPlaceThatIsNoneIsNoSocket()
{
    QFETCH(QString, path);
    InstanceServer server;
    QVERIFY(!server.listen(path));
}

void TestInstanceServer::eachFolderHasASocketOfItsOwn()
{
    const QDir folder(m_folder->path());
    QVERIFY(folder.mkdir(QStringLiteral("one")) && folder.mkdir(QStringLiteral("two")));
    QVERIFY(QFile::link(folder.filePath(QStringLiteral("one")), folder.filePath(QStringLiteral("link"))));
    const auto socket = [&folder](const char *name) {
        return InstanceServer::socketPath(folder.filePath(QLatin1String(name)));
    };
    const QString one = socket("one");
    QVERIFY(one.startsWith(QString::fromLocal8Bit(qgetenv("XDG_RUNTIME_DIR")) + QLatin1Char('/')));
    QVERIFY(one != socket("two"));
    QCOMPARE(socket("link"), one);
    QCOMPARE(socket("two/../one"), one);
    QCOMPARE(socket("one/"), one);
}

QTEST_GUILESS_MAIN(TestInstanceServer)
#include "tst_instanceserver.moc"
