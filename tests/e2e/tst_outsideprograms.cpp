// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <QDir>
#include <QFile>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>
#include <vector>

namespace {

constexpr int twoMinutes = 120'000;

} // namespace

/// Two programs with one profile: what the second is asked to open, the first opens.
class TestOutsidePrograms : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aLaterStartBringsTheWindowToTheFront();
    void aLaterStartHandsOverWhatItIsToOpen_data();
    void aLaterStartHandsOverWhatItIsToOpen();
    void aPluginThatHandlesAFileIsAskedFirst();
    void aLinkToAPageIsNotOpened();
    void aProgramThatWasKilledIsReplaced();
    void anotherProfileIsAnotherProgram();
    void callersWhoMakeNoSenseDoNotKeepOthersOut_data();
    void callersWhoMakeNoSenseDoNotKeepOthersOut();
    void aProgramThatStandsStillIsTold();

private:
    void start(QProcess &process, const QString &profile, const QString &argument = QString());
    /// Has @p argument opened by the program that runs.
    bool handOver(const QString &argument = QString());
    QString profile() const { return m_folder->filePath(QStringLiteral("profile")); }
    QStringList seen(const QString &profile) const;
    bool waitFor(const QString &line) const;
    QString socket() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QProcess> m_first;
};

void TestOutsidePrograms::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_first = std::make_unique<QProcess>();
    QVERIFY(QDir::setCurrent(m_folder->path()));
    start(*m_first, profile());
    QVERIFY(waitFor(QStringLiteral("ready")));
    QTRY_VERIFY_WITH_TIMEOUT(!socket().isEmpty(), twoMinutes);
}

void TestOutsidePrograms::cleanup()
{
    m_first->kill();
    m_first->waitForFinished();
    QFile::remove(socket());
}

void TestOutsidePrograms::start(QProcess &process, const QString &profile, const QString &argument)
{
    QStringList arguments{QStringLiteral("--profile"),     profile,
                          QStringLiteral("--plugins"),     QStringLiteral(ONLOOKER_DIRECTORY),
                          QStringLiteral("--user"),        QStringLiteral("demo"),
                          QStringLiteral("--password-fd"), QStringLiteral("0")};
    if (!argument.isEmpty())
        arguments.append(argument);
    process.start(QStringLiteral(HALVORA_PROGRAM), arguments);
    process.write("pinegate\n"); // or a dialog would ask for it
    process.closeWriteChannel();
}

bool TestOutsidePrograms::handOver(const QString &argument)
{
    QProcess second;
    start(second, profile(), argument);
    if (!second.waitForFinished(twoMinutes))
        second.kill();
    return second.exitStatus() == QProcess::NormalExit && second.exitCode() == 0 &&
           m_first->state() == QProcess::Running;
}

QStringList TestOutsidePrograms::seen(const QString &profile) const
{
    QFile file(profile + QStringLiteral("/onlooker.log"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

bool TestOutsidePrograms::waitFor(const QString &line) const
{
    return QTest::qWaitFor([this, &line] { return seen(profile()).contains(line); }, twoMinutes);
}

QString TestOutsidePrograms::socket() const
{
    const QDir place(QString::fromLocal8Bit(qgetenv("XDG_RUNTIME_DIR")));
    const QStringList names = place.entryList({QStringLiteral("halvora-*")}, QDir::System);
    return names.size() == 1 ? place.filePath(names.constFirst()) : QString();
}

void TestOutsidePrograms::aLaterStartBringsTheWindowToTheFront()
{
    QVERIFY(handOver());
    QVERIFY(waitFor(QStringLiteral("restored")));
    QVERIFY(!seen(profile()).contains(QStringLiteral("details")));
}

void TestOutsidePrograms::aLaterStartHandsOverWhatItIsToOpen_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("file");
    QTest::newRow("a file in the current folder") << QStringLiteral("sea.nzb") << QStringLiteral("sea.nzb");
    QTest::newRow("a strange name") << QStringLiteral("a b#c%20:\u00e4.nzb")
                                    << QStringLiteral("a b#c%20:\u00e4.nzb");
    QTest::newRow("a link") << QStringLiteral("testnews://details?filegroup=abc") << QString();
}

void TestOutsidePrograms::aLaterStartHandsOverWhatItIsToOpen()
{
    QFETCH(QString, argument);
    QFETCH(QString, file);
    QVERIFY(handOver(argument));
    QVERIFY(waitFor(QStringLiteral("restored")));
    QVERIFY(waitFor(QStringLiteral("details")));
    QCOMPARE(seen(profile()).contains(QDir::current().absoluteFilePath(file)), !file.isEmpty());
}

void TestOutsidePrograms::aPluginThatHandlesAFileIsAskedFirst()
{
    const QString mine = m_folder->filePath(QStringLiteral("a.mine"));
    const QString other = m_folder->filePath(QStringLiteral("b.nzb"));
    QVERIFY(handOver(mine));
    QVERIFY(handOver(other));
    QVERIFY(waitFor(QStringLiteral("details")));
    const QStringList lines = seen(profile());
    QVERIFY(lines.contains(mine));
    QVERIFY(lines.indexOf(QStringLiteral("details")) > lines.indexOf(other));
}

void TestOutsidePrograms::aLinkToAPageIsNotOpened()
{
    QVERIFY(handOver(QStringLiteral("https://www.testnews.example/")));
    QVERIFY(waitFor(QStringLiteral("restored")));
    // What comes later tells that what came before has been dealt with.
    const QString mine = m_folder->filePath(QStringLiteral("a.mine"));
    QVERIFY(handOver(mine));
    QVERIFY(waitFor(mine));
    QVERIFY(!seen(profile()).contains(QStringLiteral("details")));
}

void TestOutsidePrograms::aProgramThatWasKilledIsReplaced()
{
    const QString before = socket();
    m_first->kill();
    QVERIFY(m_first->waitForFinished());
    QVERIFY(!before.isEmpty());
    QCOMPARE(socket(), before);
    QVERIFY(QFile::remove(profile() + QStringLiteral("/onlooker.log")));

    m_first = std::make_unique<QProcess>();
    start(*m_first, profile(), QStringLiteral("sea.nzb"));
    QVERIFY(waitFor(QStringLiteral("details")));
    const QString mine = m_folder->filePath(QStringLiteral("a.mine"));
    QVERIFY(handOver(mine));
    QVERIFY(waitFor(mine));
}

void TestOutsidePrograms::anotherProfileIsAnotherProgram()
{
    const QString other = m_folder->filePath(QStringLiteral("other"));
    const QString mine = m_folder->filePath(QStringLiteral("a.mine"));
    QProcess second;
    start(second, other, mine);
    const bool isAsked = QTest::qWaitFor([&] { return seen(other).contains(mine); }, twoMinutes);
    const QProcess::ProcessState state = second.state();
    second.kill();
    second.waitForFinished();
    QVERIFY(isAsked);
    QCOMPARE(state, QProcess::Running);
    QCOMPARE(seen(profile()), QStringList{QStringLiteral("ready")});
    for (const QFileInfo &left : QDir(QString::fromLocal8Bit(qgetenv("XDG_RUNTIME_DIR")))
                                     .entryInfoList({QStringLiteral("halvora-*")}, QDir::System))
        QFile::remove(left.filePath());
}

void TestOutsidePrograms::callersWhoMakeNoSenseDoNotKeepOthersOut_data()
{
    QTest::addColumn<int>("callers");
    QTest::addColumn<QByteArray>("said");
    QTest::newRow("garbage from a hundred") << 100 << QByteArray::fromHex("00ff80fe1b5b324a0d0a");
    QTest::newRow("a megabyte without an end from three") << 3 << QByteArray(1 << 20, 'a');
}

void TestOutsidePrograms::callersWhoMakeNoSenseDoNotKeepOthersOut()
{
    QFETCH(int, callers);
    QFETCH(QByteArray, said);
    std::vector<std::unique_ptr<QLocalSocket>> sockets;
    for (int i = 0; i < callers; ++i) {
        sockets.push_back(std::make_unique<QLocalSocket>());
        QLocalSocket *caller = sockets.back().get();
        connect(caller, &QLocalSocket::connected, caller, [caller, said] { caller->write(said); });
        caller->connectToServer(socket());
    }
    for (const auto &caller : sockets)
        QTRY_COMPARE_WITH_TIMEOUT(caller->state(), QLocalSocket::UnconnectedState, twoMinutes);
    QCOMPARE(seen(profile()), QStringList{QStringLiteral("ready")});
    const QString mine = m_folder->filePath(QStringLiteral("a.mine"));
    QVERIFY(handOver(mine));
    QVERIFY(waitFor(mine));
}

void TestOutsidePrograms::aProgramThatStandsStillIsTold()
{
    ::kill(pid_t(m_first->processId()), SIGSTOP);
    QProcess second;
    start(second, profile());
    QByteArray errors;
    const bool isTold = QTest::qWaitFor(
        [&] {
            errors += second.readAllStandardError();
            return errors.contains("Halvora is running with the folder");
        },
        twoMinutes);
    second.kill(); // it waits for a person who reads its message
    second.waitForFinished();
    ::kill(pid_t(m_first->processId()), SIGCONT);
    QVERIFY2(isTold, errors.constData());
    QCOMPARE(m_first->state(), QProcess::Running);
}

QTEST_GUILESS_MAIN(TestOutsidePrograms)
#include "tst_outsideprograms.moc"
