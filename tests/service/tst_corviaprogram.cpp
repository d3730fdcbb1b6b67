// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "httpsclient.h"
#include "servicefixture.h"

#include <QtTest>
#include <csignal>
#include <fstream>
#include <map>

/// The program around the service.
class TestCorviaProgram : public QObject {
    Q_OBJECT

private:
    struct Result {
        int code = -1;
        std::string out;
        std::string err;
    };

    static QStringList listOf(std::initializer_list<std::string> words)
    {
        QStringList list;
        for (const std::string &word : words) {
            list << QString::fromStdString(word);
        }
        return list;
    }

    static Result run(std::initializer_list<std::string> arguments)
    {
        QProcess process;
        process.start(QStringLiteral(CORVIA_PROGRAM), listOf(arguments));
        process.waitForFinished(20000);
        return {process.exitCode(), process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }

    static std::map<std::string, std::string> readReadyFile(const std::string &path)
    {
        std::ifstream file(path);
        std::map<std::string, std::string> values;
        for (std::string line; std::getline(file, line);) {
            const std::size_t middle = line.find('=');
            values[line.substr(0, middle)] = line.substr(middle + 1);
        }
        return values;
    }

    static void expectMistake(std::initializer_list<std::string> arguments, const std::string &sentence)
    {
        const Result result = run(arguments);
        QCOMPARE(result.code, 2);
        QCOMPARE(result.err, "corvia-service: " + sentence + "\n");
        QCOMPARE(result.out, std::string());
    }

private Q_SLOTS:
    void itServesUntilItIsTold_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("terminated") << SIGTERM;
        QTest::newRow("interrupted") << SIGINT;
    }

    void itServesUntilItIsTold()
    {
        QFETCH(int, signal);
        QTemporaryDir directory;
        const std::string path = directory.path().toStdString();
        QProcess process;
        process.start(QStringLiteral(CORVIA_PROGRAM),
                      listOf({"--ready-file", path + "/ready", "--directory", path + "/keys"}));
        QTRY_VERIFY_WITH_TIMEOUT(!readReadyFile(path + "/ready").empty(), 20000);
        auto values = readReadyFile(path + "/ready");
        const std::string place = values["ACCOUNT_SERVICE"];
        HttpsClient client(std::stoi(place.substr(place.find(':') + 1)), values["ACCOUNT_CA"]);
        QCOMPARE(client.post(ServiceFixture::loginRequest("demo", "pinegate")).status, 200L);

        ::kill(static_cast<pid_t>(process.processId()), signal);
        QVERIFY(process.waitForFinished(5000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
        QCOMPARE(process.readAllStandardOutput().toStdString(),
                 "account-service " + place + "\naccount-ca " + values["ACCOUNT_CA"] + "\nnntp localhost:" +
                     values["NNTP_PORT"] + "\nnntp-tls localhost:" + values["NNTP_TLS_PORT"] + "\n");
    }

    void aMistakeInTheOptionsEndsItWithOneSentence()
    {
        expectMistake({"--nonsense"}, "There is no option --nonsense.");
        expectMistake({"--scenario"}, "--scenario needs a value.");
        expectMistake({"--nntp-port", "70000"}, "\"70000\" is no port number.");
        expectMistake({"word"}, "\"word\" is not expected; try --help.");
    }

    void helpAndVersionAreShown()
    {
        QVERIFY(run({"--help"}).out.find("--ready-file FILE") != std::string::npos);
        QCOMPARE(run({"--help"}).code, 0);
        QCOMPARE(run({"--version"}).out, std::string("corvia-service 0.1.0\n"));
    }

    void aBadScenarioFileIsToldWithItsLine()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write("<scenario version='1'>\n<nothing/></scenario>");
        file.close();
        const Result result = run({"--scenario", file.fileName().toStdString()});
        QCOMPARE(result.code, 1);
        const std::string sentence = "Line 2 of the scenario: <nothing> has no place here.";
        QCOMPARE(result.err, "corvia-service: " + sentence + "\n");
        QCOMPARE(run({"--scenario", "/nowhere.xml"}).code, 1);
    }

    void aPortInUseEndsIt()
    {
        ServiceFixture fixture;
        const Result result = run({"--account-port", std::to_string(fixture.service().accountPort())});
        QCOMPARE(result.code, 1);
        QVERIFY(result.err.find("corvia-service: Cannot listen on port ") == 0);
    }
};

QTEST_GUILESS_MAIN(TestCorviaProgram)
#include "tst_corviaprogram.moc"
