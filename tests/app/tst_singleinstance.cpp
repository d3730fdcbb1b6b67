// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "instanceline.h"
#include "instanceserver.h"
#include "singleinstance.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <memory>

namespace {

constexpr int aMinute = 60'000;

/// A later start of the program, beside the event loop of the first one.
class LaterStart final : public QThread {
public:
    LaterStart(const QString &folder, const QString &argument, std::chrono::milliseconds patience)
        : m_folder(folder)
        , m_argument(argument)
        , m_patience(patience)
    {
        start();
    }
    ~LaterStart() override { wait(); }

    SingleInstance::Outcome outcome() const { return m_outcome; }
    QString refusal() const { return m_refusal; }

protected:
    void run() override
    {
        SingleInstance instance(m_folder);
        m_outcome = instance.takeOrHandOver(m_argument, m_patience);
        m_refusal = instance.refusal();
    }

private:
    const QString m_folder;
    const QString m_argument;
    const std::chrono::milliseconds m_patience;
    SingleInstance::Outcome m_outcome = SingleInstance::Refused;
    QString m_refusal;
};

} // namespace

class TestSingleInstance : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void aProfileThatNobodyHasIsTaken();
    void theFirstIsToldWhatToOpen();
    void whoAsksNobodyIsRefused();
    void aFirstThatDoesNotListenIsTold();
    void aFirstThatDoesNotAnswerIsTold();
    void aFirstThatAnswersSomethingElseIsTold();
    void aFirstThatIsJustStartingIsWaitedFor();
    void aFirstThatIsJustEndingMakesRoom();
    void anArgumentThatCanNotBeToldIsRefused_data();
    void anArgumentThatCanNotBeToldIsRefused();

private:
    QString folder() const { return m_folder->path(); }
    QString socket() const { return InstanceServer::socketPath(folder()); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<SingleInstance> m_first;
};

void TestSingleInstance::init()
{
    m_first.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_first = std::make_unique<SingleInstance>(folder());
}

void TestSingleInstance::aProfileThatNobodyHasIsTaken()
{
    QCOMPARE(m_first->takeOrHandOver(QStringLiteral("/tmp/a.nzb"), std::chrono::milliseconds(0)),
             SingleInstance::Taken);
    QCOMPARE(m_first->refusal(), QString());
}

void TestSingleInstance::theFirstIsToldWhatToOpen()
{
    QCOMPARE(m_first->take(), SingleInstance::Taken);
    InstanceServer server;
    QVERIFY(server.listen(socket()));
    const QSignalSpy calls(&server, &InstanceServer::called);
    LaterStart second(folder(), QStringLiteral("/tmp/a.nzb"), std::chrono::milliseconds(aMinute));
    QTRY_VERIFY_WITH_TIMEOUT(second.isFinished(), aMinute);
    QCOMPARE(second.outcome(), SingleInstance::HandedOver);
    QCOMPARE(calls.count(), 1);
    QCOMPARE(calls.constFirst().constFirst().toString(), QStringLiteral("/tmp/a.nzb"));
}

void TestSingleInstance::whoAsksNobodyIsRefused()
{
    QCOMPARE(m_first->take(), SingleInstance::Taken);
    InstanceServer server;
    QVERIFY(server.listen(socket()));
    const QSignalSpy calls(&server, &InstanceServer::called);
    SingleInstance second(folder());
    QCOMPARE(second.take(), SingleInstance::Refused);
    QVERIFY2(second.refusal().contains(folder()), qPrintable(second.refusal()));
    QCoreApplication::processEvents();
    QCOMPARE(calls.count(), 0);
}

void TestSingleInstance::aFirstThatDoesNotListenIsTold()
{
    QCOMPARE(m_first->take(), SingleInstance::Taken);
    SingleInstance second(folder());
    QCOMPARE(second.takeOrHandOver(QString(), std::chrono::milliseconds(1)), SingleInstance::Refused);
    QVERIFY2(second.refusal().contains(folder()), qPrintable(second.refusal()));
}

// Its event loop stands still: the system takes the connection for it.
void TestSingleInstance::aFirstThatDoesNotAnswerIsTold()
{
    QCOMPARE(m_first->take(), SingleInstance::Taken);
    InstanceServer server;
    QVERIFY(server.listen(socket()));
    SingleInstance second(folder());
    QCOMPARE(second.takeOrHandOver(QString(), std::chrono::milliseconds(50)), SingleInstance::Refused);
    QVERIFY2(second.refusal().contains(folder()), qPrintable(second.refusal()));
}

void TestSingleInstance::aFirstThatAnswersSomethingElseIsTold()
{
    QCOMPARE(m_first->take(), SingleInstance::Taken);
    QLocalServer server;
    QVERIFY(server.listen(socket()));
    connect(&server, &QLocalServer::newConnection, this, [&server] {
        QLocalSocket *caller = server.nextPendingConnection();
        caller->write("no\n");
        caller->disconnectFromServer();
    });
    LaterStart second(folder(), QString(), std::chrono::milliseconds(300));
    QTRY_VERIFY_WITH_TIMEOUT(second.isFinished(), aMinute);
    QCOMPARE(second.outcome(), SingleInstance::Refused);
}

void TestSingleInstance::aFirstThatIsJustStartingIsWaitedFor()
{
    QCOMPARE(m_first->take(), SingleInstance::Taken);
    InstanceServer server;
    const QSignalSpy calls(&server, &InstanceServer::called);
    // What a killed program left is there before the first one listens, and nobody answers at it.
    QVERIFY(QFile(socket()).open(QIODevice::WriteOnly));
    LaterStart second(folder(), QString(), std::chrono::milliseconds(aMinute));
    QTest::qWait(0);
    QVERIFY(server.listen(socket()));
    QTRY_VERIFY_WITH_TIMEOUT(second.isFinished(), aMinute);
    QCOMPARE(second.outcome(), SingleInstance::HandedOver);
    QCOMPARE(calls.count(), 1);
}

void TestSingleInstance::aFirstThatIsJustEndingMakesRoom()
{
    QCOMPARE(m_first->take(), SingleInstance::Taken);
    QLocalServer server;
    QVERIFY(server.listen(socket()));
    // The second one is there when the first one goes.
    connect(&server, &QLocalServer::newConnection, this, [this, &server] {
        server.close();
        m_first.reset();
    });
    LaterStart second(folder(), QString(), std::chrono::milliseconds(aMinute));
    QTRY_VERIFY_WITH_TIMEOUT(second.isFinished(), aMinute);
    QCOMPARE(second.outcome(), SingleInstance::Taken);
    QCOMPARE(second.refusal(), QString());
}

void TestSingleInstance::anArgumentThatCanNotBeToldIsRefused_data()
{
    QTest::addColumn<QString>("argument");
    QTest::newRow("too long") << QString(InstanceLine::longest, QLatin1Char('a'));
    QTest::newRow("two lines") << QStringLiteral("/tmp/a\nhalvora 1 /tmp/b");
}

void TestSingleInstance::anArgumentThatCanNotBeToldIsRefused()
{
    QFETCH(QString, argument);
    QCOMPARE(m_first->takeOrHandOver(argument, std::chrono::milliseconds(aMinute)), SingleInstance::Refused);
    QVERIFY(m_first->refusal().contains(QLatin1String("too long or damaged")));
}

QTEST_GUILESS_MAIN(TestSingleInstance)
#include "tst_singleinstance.moc"
