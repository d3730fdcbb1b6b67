// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <corviaservice.h>

/// The very program that is shipped, started as a shell or a desktop starts it.
class TestProgram : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void aPictureIsTakenAfterTheLogin();
    void aFolderWithoutANameDoesNotKeepTheProgram();
    void aWrongPasswordEndsAPictureRunWithASentence();
    void helpAndVersionNeedNoDisplay_data();
    void helpAndVersionNeedNoDisplay();
    void aDescriptorThatNobodyOpenedIsMisuse();
    void aProfileThatCanNotBeMadeIsTold();
    void thePasswordIsNoArgumentOfTheProcess();
    void aWorkerThatDoesNotEndIsLeftBehindWithEverythingSaved();

private:
    struct Outcome {
        int exitCode = -1;
        QString output;
        QString errors;
    };
    QStringList arguments() const;
    /// The password stands on standard input.
    static Outcome run(const QStringList &arguments, const QByteArray &input = {});

    QTemporaryDir m_folder;
    std::unique_ptr<corvia::CorviaService> m_service;
};

void TestProgram::initTestCase()
{
    m_service = std::make_unique<corvia::CorviaService>(corvia::demoScenario(), corvia::Options());
    std::string why;
    QVERIFY2(m_service->start(&why), why.c_str());
}

QStringList TestProgram::arguments() const
{
    return {QStringLiteral("--account-service"),
            QStringLiteral("localhost:%1").arg(m_service->accountPort()),
            QStringLiteral("--account-ca"),
            QString::fromStdString(m_service->authorityFile()),
            QStringLiteral("--profile"),
            m_folder.filePath(QString::fromLatin1(QTest::currentTestFunction())),
            QStringLiteral("--plugins"),
            QStringLiteral(PLUGIN_DIRECTORY),
            QStringLiteral("--user"),
            QStringLiteral("demo"),
            QStringLiteral("--password-fd"),
            QStringLiteral("0"),
            QStringLiteral("--screenshot"),
            m_folder.filePath(QStringLiteral("picture.png"))};
}

TestProgram::Outcome TestProgram::run(const QStringList &arguments, const QByteArray &input)
{
    QProcess process;
    process.start(QStringLiteral(HALVORA_PROGRAM), arguments);
    process.write(input);
    process.closeWriteChannel();
    Outcome outcome;
    if (!process.waitForFinished(120'000))
        process.kill();
    if (process.exitStatus() == QProcess::NormalExit)
        outcome.exitCode = process.exitCode();
    outcome.output = QString::fromUtf8(process.readAllStandardOutput());
    outcome.errors = QString::fromUtf8(process.readAllStandardError());
    return outcome;
}

void TestProgram::aPictureIsTakenAfterTheLogin()
{
    const Outcome outcome = run(arguments(), "pinegate\n");
    QVERIFY2(outcome.exitCode == 0, qPrintable(outcome.errors));
    const QImage picture(m_folder.filePath(QStringLiteral("picture.png")));
    QVERIFY(picture.width() > 400 && picture.height() > 300);
    QVERIFY(!QFile::permissions(m_folder.filePath(QStringLiteral("aPictureIsTakenAfterTheLogin")))
                 .testFlag(QFile::ReadOther));
}

// The worker is still at the reply when the program ends.
void TestProgram::aFolderWithoutANameDoesNotKeepTheProgram()
{
    corvia::Fault nameless;
    nameless.kind = corvia::Fault::Kind::Element;
    nameless.text = "<bookmarks><folder><name/></folder></bookmarks>";
    nameless.request = "bookmarks";
    m_service->setFault(nameless);
    const Outcome outcome = run(arguments(), "pinegate\n");
    m_service->setFault(corvia::Fault());
    QVERIFY2(outcome.exitCode == 0, qPrintable(outcome.errors));
    QVERIFY2(!outcome.errors.contains(QLatin1String("did not end in time")), qPrintable(outcome.errors));
}

void TestProgram::aWrongPasswordEndsAPictureRunWithASentence()
{
    const Outcome outcome = run(arguments(), "wrong\n");
    QCOMPARE(outcome.exitCode, 1);
    QVERIFY2(outcome.errors.contains(QLatin1String("The login failed: ")), qPrintable(outcome.errors));
    QVERIFY(!outcome.errors.contains(QLatin1String("wrong\n")));
}

void TestProgram::helpAndVersionNeedNoDisplay_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("said");
    QTest::newRow("help") << QStringLiteral("--help") << QStringLiteral("--account-service");
    QTest::newRow("help with what Qt adds")
        << QStringLiteral("--help-all") << QStringLiteral("--account-service");
    QTest::newRow("version") << QStringLiteral("--version") << QStringLiteral("Halvora ");
}

void TestProgram::helpAndVersionNeedNoDisplay()
{
    QFETCH(QString, option);
    QFETCH(QString, said);
    qputenv("QT_QPA_PLATFORM", "xcb");
    qunsetenv("DISPLAY");
    const Outcome outcome = run({option});
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QCOMPARE(outcome.exitCode, 0);
    QVERIFY2(outcome.output.contains(said), qPrintable(outcome.output));
}

void TestProgram::aDescriptorThatNobodyOpenedIsMisuse()
{
    const Outcome outcome = run({QStringLiteral("--password-fd"), QStringLiteral("57")});
    QCOMPARE(outcome.exitCode, 2);
    QVERIFY(outcome.errors.contains(QLatin1String("--password-fd")));
}

void TestProgram::aProfileThatCanNotBeMadeIsTold()
{
    const Outcome outcome = run({QStringLiteral("--profile"), QStringLiteral("/proc/nowhere/profile")});
    QCOMPARE(outcome.exitCode, 1);
    QVERIFY(outcome.errors.contains(QLatin1String("/proc/nowhere/profile")));
}

void TestProgram::thePasswordIsNoArgumentOfTheProcess()
{
    const Outcome outcome = run({QStringLiteral("--password"), QStringLiteral("pinegate")});
    QCOMPARE(outcome.exitCode, 2);
}

void TestProgram::aWorkerThatDoesNotEndIsLeftBehindWithEverythingSaved()
{
    const QString profile = m_folder.filePath(QStringLiteral("stubborn"));
    QElapsedTimer timer;
    timer.start();
    const Outcome outcome = run({QStringLiteral("--profile"), profile, QStringLiteral("--plugins"),
                                 QStringLiteral(STUBBORN_DIRECTORY), QStringLiteral("--account-service"),
                                 QStringLiteral("localhost:%1").arg(m_service->accountPort())});
    qInfo("ended after %lld ms", timer.elapsed());
    QVERIFY2(outcome.exitCode == 0, qPrintable(outcome.errors));
    QVERIFY(outcome.errors.contains(QLatin1String("the worker did not end in time")));
    const QSettings settings(profile + QStringLiteral("/halvora.ini"), QSettings::IniFormat);
    QVERIFY(settings.value(QStringLiteral("Stubborn/Started")).toBool());
    QFile journal(profile + QStringLiteral("/traffic-stubbornplugin.log"));
    QVERIFY(journal.open(QIODevice::ReadOnly));
    QVERIFY(journal.readAll().contains("12345"));
}

QTEST_GUILESS_MAIN(TestProgram)
#include "tst_program.moc"
