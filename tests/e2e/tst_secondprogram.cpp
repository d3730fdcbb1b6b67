// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <corviaservice.h>

/// Two programs that want the same profile.
class SecondProgramTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void aSecondProgramRefusesWithASentence();
    void anotherProfileIsNoHindrance();
    void aProgramThatWasKilledKeepsNothing();
    void aProgramThatEndedKeepsNothing();

private:
    QStringList arguments(const QString &profile) const;
    /// Logs in, takes its picture and ends.
    int run(const QString &profile, QString *errors) const;
    /// Stays until it is told to go.
    bool open(const QString &profile);

    QTemporaryDir m_folder;
    std::unique_ptr<corvia::CorviaService> m_service;
    QProcess m_first;
};

void SecondProgramTest::initTestCase()
{
    m_service = std::make_unique<corvia::CorviaService>(corvia::demoScenario(), corvia::Options());
    std::string why;
    QVERIFY2(m_service->start(&why), why.c_str());
}

void SecondProgramTest::cleanup()
{
    m_first.kill();
    m_first.waitForFinished();
}

QStringList SecondProgramTest::arguments(const QString &profile) const
{
    return {QStringLiteral("--account-service"), QStringLiteral("localhost:%1").arg(m_service->accountPort()),
            QStringLiteral("--account-ca"),      QString::fromStdString(m_service->authorityFile()),
            QStringLiteral("--profile"),         profile,
            QStringLiteral("--plugins"),         QStringLiteral(PLUGIN_DIRECTORY)};
}

int SecondProgramTest::run(const QString &profile, QString *errors) const
{
    QProcess process;
    process.start(QStringLiteral(HALVORA_PROGRAM),
                  arguments(profile) + QStringList{QStringLiteral("--user"), QStringLiteral("demo"),
                                                   QStringLiteral("--password-fd"), QStringLiteral("0"),
                                                   QStringLiteral("--screenshot"),
                                                   m_folder.filePath(QStringLiteral("picture.png"))});
    process.write("pinegate\n");
    process.closeWriteChannel();
    if (!process.waitForFinished(120'000))
        process.kill();
    *errors = QString::fromUtf8(process.readAllStandardError());
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

bool SecondProgramTest::open(const QString &profile)
{
    m_first.start(QStringLiteral(HALVORA_PROGRAM), arguments(profile));
    const QString lock = profile + QStringLiteral("/halvora.lock");
    return QTest::qWaitFor([&] { return QFile::exists(lock); }, 60'000) &&
           m_first.state() == QProcess::Running;
}

void SecondProgramTest::aSecondProgramRefusesWithASentence()
{
    const QString profile = m_folder.filePath(QStringLiteral("one"));
    QVERIFY(open(profile));
    QString errors;
    QCOMPARE(run(profile, &errors), 1);
    QVERIFY2(errors.contains(QLatin1String("Halvora is running with the folder ") + profile),
             qPrintable(errors));
    QVERIFY(!QFile::exists(m_folder.filePath(QStringLiteral("picture.png"))));
    QCOMPARE(m_first.state(), QProcess::Running);
}

void SecondProgramTest::anotherProfileIsNoHindrance()
{
    QVERIFY(open(m_folder.filePath(QStringLiteral("two"))));
    QString errors;
    QVERIFY2(run(m_folder.filePath(QStringLiteral("three")), &errors) == 0, qPrintable(errors));
}

void SecondProgramTest::aProgramThatWasKilledKeepsNothing()
{
    const QString profile = m_folder.filePath(QStringLiteral("four"));
    QVERIFY(open(profile));
    m_first.kill();
    QVERIFY(m_first.waitForFinished());
    QVERIFY(QFile::exists(profile + QStringLiteral("/halvora.lock")));
    QString errors;
    QVERIFY2(run(profile, &errors) == 0, qPrintable(errors));
}

void SecondProgramTest::aProgramThatEndedKeepsNothing()
{
    const QString profile = m_folder.filePath(QStringLiteral("five"));
    QString errors;
    QVERIFY2(run(profile, &errors) == 0, qPrintable(errors));
    QVERIFY(!QFile::exists(profile + QStringLiteral("/halvora.lock")));
    QVERIFY2(run(profile, &errors) == 0, qPrintable(errors));
}

QTEST_GUILESS_MAIN(SecondProgramTest)
#include "tst_secondprogram.moc"
