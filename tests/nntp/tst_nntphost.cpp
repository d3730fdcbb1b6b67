// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/nntphost.h>

#include <QtTest>

class tst_NntpHost : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aHostIsWhatItWasMadeOf();
    void noHostIsEmpty();
    void hostsAreEqualWhenEveryPartIs();
};

void tst_NntpHost::aHostIsWhatItWasMadeOf()
{
    const NntpHost host(QStringLiteral("news.corvia.example"), 563, true);
    QCOMPARE(host.host(), QStringLiteral("news.corvia.example"));
    QCOMPARE(host.port(), quint16(563));
    QVERIFY(host.isSsl());
}

void tst_NntpHost::noHostIsEmpty()
{
    const NntpHost host;
    QCOMPARE(host.host(), QString());
    QCOMPARE(host.port(), quint16(0));
    QVERIFY(!host.isSsl());
}

void tst_NntpHost::hostsAreEqualWhenEveryPartIs()
{
    const NntpHost host(QStringLiteral("news.corvia.example"), 563, true);
    NntpHost copy;
    QVERIFY(copy != host);
    copy = host;
    QVERIFY(copy == host);
    QVERIFY(!(copy != host));
    QVERIFY(NntpHost(QStringLiteral("other.corvia.example"), 563, true) != host);
    QVERIFY(NntpHost(QStringLiteral("news.corvia.example"), 119, true) != host);
    QVERIFY(NntpHost(QStringLiteral("news.corvia.example"), 563, false) != host);
}

QTEST_APPLESS_MAIN(tst_NntpHost)
#include "tst_nntphost.moc"
