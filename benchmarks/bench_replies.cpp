// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "application.h"
#include "heartbeat.h"
#include "logincontroller.h"

#include "details/detailsdock.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/hmessagemanager.h>
#include <halvora/hserver.h>
#include <halvora/mainwindow.h>

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QXmlStreamWriter>

#include <cstdio>
#include <functional>

// What the largest replies cost the window and the memory: the whole program, each reply in a process of its
// own, the service in another one.
namespace {

constexpr int maxBytes = 4 * 1024 * 1024;
constexpr int manyNodes = 99'000;
constexpr int manyMessages = 10'000;
constexpr int settleTime = 400; // milliseconds in which the window paints what is new

enum class Ask { Status, Login, Details };

struct Case {
    const char *name;
    Ask ask;
    std::function<QByteArray()> content; ///< what the root of the reply has in it
    int known = 0;                       ///< messages that are there before
};

QByteArray repeated(const QByteArray &unit, int count)
{
    return unit.repeated(qMin(count, (maxBytes - 200) / unit.size()));
}

QByteArray attributes(int count)
{
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += QByteArray(" a") + char('a' + i % 26) + char('a' + i / 26) + "='1'";
    return text;
}

QByteArray status(const QByteArray &content)
{
    return "<status supported='true'>" + content + "</status>";
}

// Dates in steps of an hour; @p shift moves them, @p step is the distance of the numbers.
QByteArray messageList(int count, int shift, int step, int padding)
{
    QByteArray list = "<success/><messages>";
    for (int i = 0; i < count; ++i) {
        const int number = i * step;
        const qint64 date =
            1'577'836'800'000 + qint64(shift == 0 ? number : (number * 7919) % count) * 3'600'000;
        list += "<message uid='maintenance-" + QByteArray::number(number + (step > 1 ? 1 : 0)) + "' date='" +
                QByteArray::number(date + (step > 1 ? 1 : 0)) + "' url='https://status.corvia.example/" +
                QByteArray::number(number) +
                "' read='false' deletable='true'>The news servers rest on Sunday. " +
                QByteArray(padding, 'x') + "</message>";
    }
    return list + "</messages>";
}

QByteArray nzb(const QByteArray &files)
{
    return "<details><nzb>" + files + "</nzb></details>";
}

QByteArray segments(int count)
{
    return "<file subject='moon' poster='Rika'><groups><group>misc.test</group></groups><segments>" +
           QByteArray(
               "<segment bytes='716800' number='123'>part1of100.AbCdEfGhIjKl@news.corvia.example</segment>")
               .repeated(count) +
           "</segments></file>";
}

QByteArray login(const QByteArray &servers, const QByteArray &plan, const QByteArray &note,
                 const QByteArray &address = QByteArray())
{
    return "<login session='word' auto-search-interval='900'><nntp-servers>" + servers +
           "</nntp-servers><links>" +
           QByteArray("<link key='home' url='https://www.corvia.example/'/>").repeated(100) +
           "</links><software-update version='9' url='https://www.corvia.example/" + address + "'>" + note +
           "</software-update><status supported='true'><plan name='" + plan +
           "'/><nntp max-connections='20'/></status></login>";
}

const QVector<Case> &cases()
{
    static const QVector<Case> all = {
        {"a usual status", Ask::Status, [] { return status("<plan name='Pinegate'/>"); }},
        {"200,000 elements", Ask::Status, [] { return status(repeated("<a/>", 199'000)); }},
        {"64 attributes each, to 4 MiB", Ask::Status,
         [] { return status(repeated("<a" + attributes(64) + "/>", maxBytes)); }},
        {"unknown entities", Ask::Status, [] { return status(repeated("&b;x", maxBytes)); }},
        {"instructions", Ask::Status, [] { return status(repeated("<?b?>", maxBytes)); }},
        {"99,000 elements", Ask::Status, [] { return status(repeated("<a/>", manyNodes)); }},
        {"99,000 elements and texts", Ask::Status, [] { return status(repeated("<a/>x", manyNodes / 2)); }},
        {"99,000 elements and attributes", Ask::Status,
         [] { return status(repeated("<a b='1'/>", manyNodes / 2)); }},
        {"the same, to 4 MiB", Ask::Status,
         [] { return status(repeated("<a b='" + QByteArray(70, 'x') + "'/>", manyNodes / 2)); }},
        {"99,000 attributes", Ask::Status,
         [] { return status(repeated("<a" + attributes(64) + "/>", manyNodes / 65)); }},
        {"99,000 instructions", Ask::Status, [] { return status(repeated("<?b?>", manyNodes)); }},
        {"one text of 4 MiB", Ask::Status, [] { return status(QByteArray(maxBytes - 200, 'x')); }},
        {"a plan name of 4 MiB", Ask::Login, [] { return login({}, QByteArray(maxBytes - 9'000, 'x'), {}); }},
        {"100 servers, 100 links, long note", Ask::Login,
         [] {
             return login(QByteArray("<server host='a" + QByteArray(250, 'x') + "' port='119' ssl='true'/>")
                              .repeated(100),
                          QByteArray(512, 'W'), QByteArray(maxBytes - 60'000, 'x'));
         }},
        {"a newer client, address of 4 MiB", Ask::Login,
         [] { return login({}, "a", "b", QByteArray(maxBytes - 9'000, 'x')); }},
        {"10,000 messages", Ask::Status, [] { return messageList(manyMessages, 0, 1, 0); }},
        {"10,000 messages, to 4 MiB", Ask::Status, [] { return messageList(manyMessages, 0, 1, 220); }},
        {"10,000 messages once more", Ask::Status, [] { return messageList(manyMessages, 0, 1, 0); },
         manyMessages},
        {"10,000 re-dated messages", Ask::Status, [] { return messageList(manyMessages, 1, 1, 0); },
         manyMessages},
        {"5,000 messages among 5,000", Ask::Status, [] { return messageList(5'000, 0, 2, 0); },
         manyMessages / 2},
        {"49,000 short messages", Ask::Status,
         [] {
             QByteArray list = "<success/><messages>";
             for (int i = 0; i < 49'000; ++i)
                 list += "<message uid='" + QByteArray::number(i) + "'/>";
             return list + "</messages>";
         }},
        {"details of 24,000 segments", Ask::Details, [] { return nzb(segments(24'000)); }},
        {"details of 99,000 files", Ask::Details,
         [] { return nzb(QByteArray("<file/>").repeated(manyNodes)); }},
    };
    return all;
}

class StatusRequest final : public HRequest {
public:
    using HRequest::HRequest;
    void buildRequestInternal(QXmlStreamWriter &writer) override
    {
        writer.writeEmptyElement(QStringLiteral("status"));
    }
};

/// The service in a process of its own, with one reply that it always gives.
class Service {
public:
    Service(const Case &test, const QString &directory)
        : m_ready(directory + QStringLiteral("/ready"))
    {
        const QString scenario = directory + QStringLiteral("/scenario.xml");
        QFile file(scenario);
        file.open(QIODevice::WriteOnly);
        QXmlStreamWriter writer(&file);
        writer.writeStartElement(QStringLiteral("scenario"));
        writer.writeAttribute(QStringLiteral("version"), QStringLiteral("1"));
        writer.writeEmptyElement(QStringLiteral("fault"));
        writer.writeAttribute(QStringLiteral("kind"), QStringLiteral("body"));
        writer.writeAttribute(QStringLiteral("request"), elementOf(test.ask));
        writer.writeAttribute(QStringLiteral("text"),
                              QString::fromUtf8("<reply version='1'>" + test.content() + "</reply>"));
        writer.writeEmptyElement(QStringLiteral("account"));
        writer.writeAttribute(QStringLiteral("user"), QStringLiteral("demo"));
        writer.writeAttribute(QStringLiteral("password"), QStringLiteral("pinegate"));
        writer.writeEndElement();
        file.close();
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral(CORVIA_PROGRAM),
                        {QStringLiteral("--scenario"), scenario, QStringLiteral("--ready-file"), m_ready});
        while (!QFile::exists(m_ready) && m_process.state() != QProcess::NotRunning)
            m_process.waitForReadyRead(50);
    }
    ~Service()
    {
        m_process.terminate();
        m_process.waitForFinished();
    }
    Q_DISABLE_COPY(Service)

    QString value(const char *name) const
    {
        QFile file(m_ready);
        file.open(QIODevice::ReadOnly);
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (line.startsWith(QByteArray(name) + '='))
                return QString::fromUtf8(line.mid(int(qstrlen(name)) + 1)).trimmed();
        }
        return {};
    }

private:
    static QString elementOf(Ask ask)
    {
        if (ask == Ask::Login)
            return QStringLiteral("login");
        return ask == Ask::Details ? QStringLiteral("details") : QStringLiteral("status");
    }

    const QString m_ready;
    QProcess m_process;
};

/// KiB of this process.
long memory(const char *name)
{
    QFile file(QStringLiteral("/proc/self/status"));
    file.open(QIODevice::ReadOnly);
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith(name))
            return line.mid(line.indexOf(':') + 1).trimmed().split(' ').first().toLong();
    }
    return 0;
}

void forgetPeak()
{
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    file.open(QIODevice::WriteOnly);
    file.write("5");
}

void wait(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void logIn(MainWindow &window)
{
    Q_EMIT window.loginRequested();
    auto *dialog = window.findChild<QDialog *>(QStringLiteral("LoginDialog"));
    dialog->findChild<QLineEdit *>(QStringLiteral("user"))->setText(QStringLiteral("demo"));
    dialog->findChild<QLineEdit *>(QStringLiteral("password"))->setText(QStringLiteral("pinegate"));
    dialog->findChild<QPushButton *>(QStringLiteral("logIn"))->click();
}

QVector<HMessage> knownMessages(int count)
{
    const QDateTime oldest = QDateTime::fromMSecsSinceEpoch(1'577'836'800'000, Qt::UTC);
    QVector<HMessage> messages;
    for (int i = 0; i < count; ++i) {
        const int number = count < manyMessages ? 2 * i : i;
        messages.append(HMessage(QStringLiteral("maintenance-%1").arg(number), QStringLiteral("Text"),
                                 oldest.addSecs(3'600 * number), UrlInfo()));
    }
    return messages;
}

/// From the question to the end of what the reply made the window do.
void measure(const Case &test)
{
    const QTemporaryDir directory;
    const Service service(test, directory.path());
    Options options;
    options.serviceHost = QStringLiteral("localhost");
    options.servicePort = quint16(service.value("ACCOUNT_SERVICE").section(QLatin1Char(':'), -1).toUInt());
    options.authorityFile = service.value("ACCOUNT_CA");
    options.profile = directory.filePath(QStringLiteral("profile"));
    options.pluginDirectory = QStringLiteral(PLUGIN_DIRECTORY);
    Application program(options);
    program.start();
    Connector *connector = program.connectorPlugin()->connector();
    bool done = false;
    const auto waitUntilDone = [&done] {
        while (!done)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    const QObject guard;
    const bool isLogin = test.ask == Ask::Login;
    QObject::connect(connector->server(), &HServer::stateChanged, &guard, [&done](HServer::State state) {
        done = done || state == HServer::Connected || state == HServer::ServiceLost;
    });
    QObject::connect(connector->server(), &HServer::requestFailed, &guard, [&done] { done = true; });
    if (!isLogin) {
        logIn(*program.window());
        waitUntilDone();
        connector->messages()->receive(knownMessages(test.known));
    }
    wait(settleTime);

    done = false;
    forgetPeak();
    const long before = memory("VmRSS");
    const Heartbeat heartbeat;
    RequestFailure failure;
    QObject::connect(connector->server(), &HServer::requestFailed, &guard,
                     [&failure, isLogin](const RequestFailure &why, bool ofLogin) {
                         if (ofLogin == isLogin)
                             failure = why;
                     });
    if (isLogin) {
        logIn(*program.window());
        waitUntilDone();
    } else if (test.ask == Ask::Details) {
        auto *dock = program.window()->findChild<DetailsDock *>();
        dock->showFileGroup(HStorageId(QStringLiteral("moon")));
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 2'000)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    } else {
        QSharedPointer<HRequest> request(new StatusRequest(connector));
        QObject::connect(request.data(), &HRequest::requestFinished, &guard, [&done] { done = true; });
        connector->server()->addRequestToQueue(request);
        request.reset();
        waitUntilDone();
    }
    wait(settleTime);
    std::printf("%-36s %9.1f %10.1f   %s%s\n", test.name, heartbeat.longestGap(),
                double(memory("VmHWM") - before) / 1024,
                failure.isNull() ? "" : "refused: ", qPrintable(failure.detail()));
    std::fflush(stdout);
    program.shutDown(0);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1) {
        const QApplication application(argc, argv);
        measure(cases().at(QByteArray(argv[1]).toInt()));
        return 0;
    }
    std::printf("%-36s %9s %10s\n%-36s %9s %10s\n", "reply", "gap, ms", "peak, MiB", "", "<= 100", "<= 64");
    std::fflush(stdout);
    for (int i = 0; i < cases().size(); ++i) {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedOutputChannel);
        process.start(QString::fromLocal8Bit(argv[0]), {QString::number(i)});
        process.waitForFinished(-1);
    }
    return 0;
}
