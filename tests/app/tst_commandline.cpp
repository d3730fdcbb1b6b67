// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "commandline.h"

#include <QTest>

#include <fcntl.h>
#include <unistd.h>

class TestCommandLine : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyOptionIsRead();
    void withoutOptionsTheProvidersServiceIsUsed();
    void helpAndVersionAreTold();
    void helpNamesNoWayToGiveAPassword();
    void whatIsWrongIsToldInASentence_data();
    void whatIsWrongIsToldInASentence();
    void aDescriptorMustHaveBeenHandedOver();
    void aDescriptorForWritingIsRefused();
    void thePasswordsDescriptorIsHandedToNoOtherProgram();
    void aServiceHasAHostAndAPort_data();
    void aServiceHasAHostAndAPort();
};

void TestCommandLine::everyOptionIsRead()
{
    int ends[2];
    QCOMPARE(::pipe(ends), 0);
    Options options;
    QString text;
    const QStringList arguments{QStringLiteral("halvora"),
                                QStringLiteral("--account-service=localhost:5598"),
                                QStringLiteral("--account-ca"),
                                QStringLiteral("/etc/hostname"),
                                QStringLiteral("--profile"),
                                QStringLiteral("p"),
                                QStringLiteral("--plugins"),
                                QStringLiteral("q"),
                                QStringLiteral("--screenshot"),
                                QStringLiteral("s.png"),
                                QStringLiteral("--user"),
                                QStringLiteral("demo"),
                                QStringLiteral("--password-fd"),
                                QString::number(ends[0]),
                                QStringLiteral("pinegate://details?filegroup=abc")};
    QCOMPARE(CommandLine::parse(arguments, options, text), CommandLine::Run);
    QCOMPARE(options.serviceHost, QStringLiteral("localhost"));
    QCOMPARE(options.servicePort, 5598);
    QCOMPARE(options.authorityFile, QStringLiteral("/etc/hostname"));
    QCOMPARE(options.profile, QStringLiteral("p"));
    QCOMPARE(options.pluginDirectory, QStringLiteral("q"));
    QCOMPARE(options.screenshot, QStringLiteral("s.png"));
    QCOMPARE(options.user, QStringLiteral("demo"));
    QCOMPARE(options.passwordDescriptor, ends[0]);
    ::close(ends[0]);
    ::close(ends[1]);
    QCOMPARE(options.link, QStringLiteral("pinegate://details?filegroup=abc"));
}

void TestCommandLine::withoutOptionsTheProvidersServiceIsUsed()
{
    Options options;
    QString text;
    QCOMPARE(CommandLine::parse({QStringLiteral("halvora")}, options, text), CommandLine::Run);
    QVERIFY(options.serviceHost.isEmpty());
    QCOMPARE(options.passwordDescriptor, -1);
}

void TestCommandLine::helpAndVersionAreTold()
{
    Options options;
    QString text;
    QCOMPARE(CommandLine::parse({QStringLiteral("halvora"), QStringLiteral("--help")}, options, text),
             CommandLine::Done);
    for (const char *option : {"--account-service", "--account-ca", "--profile", "--plugins", "--screenshot",
                               "--password-fd", "--version", "--help"})
        QVERIFY2(text.contains(QLatin1String(option)), option);
    QCOMPARE(CommandLine::parse({QStringLiteral("halvora"), QStringLiteral("--version")}, options, text),
             CommandLine::Done);
    QVERIFY(text.endsWith(QCoreApplication::applicationVersion()));
}

void TestCommandLine::helpNamesNoWayToGiveAPassword()
{
    Options options;
    QString text;
    QCOMPARE(
        CommandLine::parse({QStringLiteral("halvora"), QStringLiteral("--password"), QStringLiteral("x")},
                           options, text),
        CommandLine::Misused);
}

void TestCommandLine::whatIsWrongIsToldInASentence_data()
{
    QTest::addColumn<QStringList>("arguments");
    const auto row = [](const char *name, const QStringList &arguments) {
        QTest::newRow(name) << (QStringList{QStringLiteral("halvora")} + arguments);
    };
    row("unknown", {QStringLiteral("--nonsense")});
    row("no value", {QStringLiteral("--profile")});
    row("no such file", {QStringLiteral("--account-ca"), QStringLiteral("/nowhere")});
    row("no number", {QStringLiteral("--password-fd"), QStringLiteral("x")});
    row("not open", {QStringLiteral("--password-fd"), QStringLiteral("987")});
    row("negative", {QStringLiteral("--password-fd=-1")});
    row("empty profile", {QStringLiteral("--profile"), QString()});
    row("empty picture", {QStringLiteral("--screenshot=")});
    row("two links", {QStringLiteral("a"), QStringLiteral("b")});
}

void TestCommandLine::whatIsWrongIsToldInASentence()
{
    QFETCH(QStringList, arguments);
    Options options;
    QString text;
    QCOMPARE(CommandLine::parse(arguments, options, text), CommandLine::Misused);
    QVERIFY2(text.size() > 10 && text.endsWith(QLatin1Char('.')), qPrintable(text));
}

namespace {

CommandLine::Result parseDescriptor(int descriptor)
{
    Options options;
    QString text;
    return CommandLine::parse(
        {QStringLiteral("halvora"), QStringLiteral("--password-fd"), QString::number(descriptor)}, options,
        text);
}

} // namespace

// Qt opens some of its own before the options are read.
void TestCommandLine::aDescriptorMustHaveBeenHandedOver()
{
    const int own = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    QCOMPARE(parseDescriptor(own), CommandLine::Misused);
    ::close(own);
}

void TestCommandLine::aDescriptorForWritingIsRefused()
{
    const int output = ::open("/dev/null", O_WRONLY);
    QCOMPARE(parseDescriptor(output), CommandLine::Misused);
    ::close(output);
}

void TestCommandLine::thePasswordsDescriptorIsHandedToNoOtherProgram()
{
    const int input = ::open("/dev/null", O_RDONLY);
    QVERIFY(input > STDERR_FILENO);
    QCOMPARE(parseDescriptor(input), CommandLine::Run);
    QVERIFY((::fcntl(input, F_GETFD) & FD_CLOEXEC) != 0);
    ::close(input);
}

void TestCommandLine::aServiceHasAHostAndAPort_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("port");
    const auto row = [](const char *value, const char *host, int port) {
        QTest::newRow(value) << QString::fromLatin1(value) << QString::fromLatin1(host) << port;
    };
    row("localhost:5598", "localhost", 5598);
    row("[::1]:443", "::1", 443);
    row("127.0.0.1:1", "127.0.0.1", 1);
    row("localhost", "", 0);
    row("localhost:", "", 0);
    row("localhost:0", "", 0);
    row("localhost:70000", "", 0);
    row("localhost:x", "", 0);
    row(":5598", "", 0);
    row("user@localhost:5598", "", 0);
    row("localhost:5598/path", "", 0);
    row("https://localhost:5598", "", 0);
}

void TestCommandLine::aServiceHasAHostAndAPort()
{
    QFETCH(QString, value);
    QFETCH(QString, host);
    QFETCH(int, port);
    Options options;
    QString text;
    const auto result = CommandLine::parse(
        {QStringLiteral("halvora"), QStringLiteral("--account-service"), value}, options, text);
    QCOMPARE(result, host.isEmpty() ? CommandLine::Misused : CommandLine::Run);
    if (result != CommandLine::Run)
        return;
    QCOMPARE(options.serviceHost, host);
    QCOMPARE(options.servicePort, port);
}

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
