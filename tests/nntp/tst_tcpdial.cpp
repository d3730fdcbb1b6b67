// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "loopbackport.h"
#include "tcpdial.h"
#include "waitbudget.h"

#include <halvora/core.h>

#include <QTemporaryDir>
#include <QtTest>

#include <arpa/inet.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

/// Resolves the name "1-2-3" to 127.0.0.1, 127.0.0.2 and 127.0.0.3, in this order.
int resolveDigits(const char *host, const char *port, const addrinfo *hints, addrinfo **found)
{
    addrinfo **end = found;
    const QList<QByteArray> digits = QByteArray(host).split('-');
    for (const QByteArray &digit : digits) {
        const QByteArray address = "127.0.0." + digit;
        if (const int error = ::getaddrinfo(address.constData(), port, hints, end); error != 0)
            return error;
        end = &(*end)->ai_next;
    }
    return 0;
}

/// The address that @p descriptor is connected to; closes it.
QByteArray peerOf(int descriptor)
{
    sockaddr_in address = {};
    socklen_t size = sizeof address;
    if (descriptor < 0 || ::getpeername(descriptor, reinterpret_cast<sockaddr *>(&address), &size) != 0)
        return "nobody";
    ::close(descriptor);
    return ::inet_ntoa(address.sin_addr);
}

} // namespace

class tst_TcpDial : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFirstAddressThatAnswersIsTaken_data();
    void theFirstAddressThatAnswersIsTaken();
};

void tst_TcpDial::theFirstAddressThatAnswersIsTaken_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("peer");
    // 1 answers, 2 refuses, 3 and 4 are dead.
    QTest::newRow("at once") << QStringLiteral("1-2-3") << QByteArray("127.0.0.1");
    QTest::newRow("after a refusal") << QStringLiteral("2-1") << QByteArray("127.0.0.1");
    QTest::newRow("after a dead one") << QStringLiteral("3-1") << QByteArray("127.0.0.1");
    QTest::newRow("after every other one") << QStringLiteral("3-2-4-1") << QByteArray("127.0.0.1");
    QTest::newRow("refused") << QStringLiteral("2-2") << QByteArray("nobody");
    QTest::newRow("dead") << QStringLiteral("3-4") << QByteArray("nobody");
    QTest::newRow("beyond the fourth") << QStringLiteral("2-2-2-2-1") << QByteArray("nobody");
}

void tst_TcpDial::theFirstAddressThatAnswersIsTaken()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, peer);
    LoopbackPort living;
    living.listen(1);
    const LoopbackPort refusing(2, living.port());
    LoopbackPort dead(3, living.port());
    dead.becomeDeaf();
    LoopbackPort alsoDead(4, living.port());
    alsoDead.becomeDeaf();
    const QTemporaryDir folder;
    const Core core(folder.path());
    const WaitBudget budget(core, 2s);
    QCOMPARE(peerOf(TcpDial::open(name, living.port(), budget, resolveDigits)), peer);
}

QTEST_GUILESS_MAIN(tst_TcpDial)
#include "tst_tcpdial.moc"
