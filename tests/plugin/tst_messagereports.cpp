// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "messagespanel.h"

#include "panels/cvmessagestoolwidget.h"
#include "panels/cvmessagestoolwidgetprivate.h"
#include "requests/cvmessagerequest.h"

#include <halvora/connector.h>
#include <halvora/hmessage.h>
#include <halvora/hmessagemanager.h>
#include <halvora/hserver.h>

#include <QTest>

Q_DECLARE_METATYPE(corvia::Fault::Kind)

/// What the account service is told of the messages that were read and deleted.
class TestMessageReports : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void theServicesCopyFollows();
    void aMessageThatStaysOpenIsReported();
    void aMessageThatIsDeletedInTimeIsReportedAsDeletedOnly();
    void whatHappensDuringARequestLeavesTogetherAfterIt();
    void readAndDeletedMessagesLeaveTogether();
    void aThousandDeletionsLeaveTogether();
    void aMessageIsReportedOnceARequest();
    void anotherReportFollowsTheOneBefore();
    void nothingIsSentWithoutCause();
    void aFailedReportIsNotRepeated_data();
    void aFailedReportIsNotRepeated();
    void reportsFromBeforeTheLoginFollowIt();
    void anotherUsersLoginReportsNothingOfTheUserBefore();
    void aLogoutReportsNothingUnderTheNextUser();
    void theEndOfTheProgramLeavesNothingWaiting();
    void aPanelMayGoWhileItsRequestIsInFlight();

private:
    void expect(const QStringList &reports);
    void erase(int number);
    void read(int number);
    bool logInAsAnother();

    std::unique_ptr<MessagesPanel> m_panel;
};

void TestMessageReports::init()
{
    m_panel = std::make_unique<MessagesPanel>();
    QVERIFY2(m_panel->account().problem().isEmpty(), qPrintable(m_panel->account().problem()));
    QVERIFY(m_panel->account().logIn());
    m_panel->fill(10);
}

void TestMessageReports::cleanup()
{
    m_panel.reset();
}

void TestMessageReports::expect(const QStringList &reports)
{
    QTRY_VERIFY_WITH_TIMEOUT(!m_panel->isReporting(), 60'000);
    QCOMPARE(m_panel->reports(), reports);
    QVERIFY(m_panel->content()->pendingRead.isEmpty());
    QVERIFY(m_panel->content()->pendingDeleted.isEmpty());
}

void TestMessageReports::erase(int number)
{
    const int row = m_panel->uids().indexOf(QStringLiteral("m%1").arg(number));
    QVERIFY(row >= 0);
    m_panel->content()->deleteMessage(m_panel->cell(row));
}

void TestMessageReports::read(int number)
{
    const int row = m_panel->uids().indexOf(QStringLiteral("m%1").arg(number));
    QVERIFY(row >= 0);
    m_panel->click(row);
    m_panel->endReadTime();
}

bool TestMessageReports::logInAsAnother()
{
    m_panel->account().connector().setAccount(QStringLiteral("another"), QStringLiteral("pinegate"));
    return m_panel->account().logIn();
}

void TestMessageReports::theServicesCopyFollows()
{
    m_panel.reset();
    m_panel = std::make_unique<MessagesPanel>(R"(<?xml version="1.0" encoding="UTF-8"?>
<scenario version="1"><account user="demo" password="pinegate"><messages>
<message uid="m2" hours-ago="30">two</message>
<message uid="m1" hours-ago="20">one</message>
<message uid="m0" hours-ago="10">nought</message>
</messages></account></scenario>)");
    QVERIFY(m_panel->account().logIn());
    QTRY_COMPARE_WITH_TIMEOUT(m_panel->uids().size(), 3, 60'000);
    read(2);
    erase(1);
    expect({QStringLiteral("read m2"), QStringLiteral("deleted m1")});
    QStringList copy;
    for (const corvia::Message &message : m_panel->account().service().messages("demo"))
        copy.append(QString::fromStdString(message.uid) +
                    (message.read ? QStringLiteral(" read") : QStringLiteral(" new")));
    QCOMPARE(copy, QStringList({QStringLiteral("m2 read"), QStringLiteral("m0 new")}));
}

void TestMessageReports::aMessageThatStaysOpenIsReported()
{
    m_panel->click(3);
    QVERIFY(!m_panel->isReporting());
    m_panel->endReadTime();
    expect({QStringLiteral("read m3")});
}

void TestMessageReports::aMessageThatIsDeletedInTimeIsReportedAsDeletedOnly()
{
    m_panel->click(3);
    m_panel->click(3, 2);
    QVERIFY(!m_panel->readTimer().isActive());
    expect({QStringLiteral("deleted m3")});
}

// The event loop, which would learn of the end of the first request, does not run between the deletions.
void TestMessageReports::whatHappensDuringARequestLeavesTogetherAfterIt()
{
    erase(2);
    erase(7);
    erase(1);
    QCOMPARE(m_panel->content()->pendingDeleted, QStringList({QStringLiteral("m7"), QStringLiteral("m1")}));
    expect({QStringLiteral("deleted m2"), QStringLiteral("deleted m7 m1")});
}

void TestMessageReports::readAndDeletedMessagesLeaveTogether()
{
    CVMessagesToolWidgetPrivate *content = m_panel->content();
    content->pendingDeleted = QStringList({QStringLiteral("c"), QStringLiteral("d")});
    content->pendingRead = QStringList({QStringLiteral("b"), QStringLiteral("a")});
    m_panel->content()->sendMessageStatus();
    QVERIFY(content->pendingRead.isEmpty());
    QVERIFY(content->pendingDeleted.isEmpty());
    expect({QStringLiteral("read b a deleted c d")});
}

void TestMessageReports::aThousandDeletionsLeaveTogether()
{
    constexpr int count = 1'000;
    m_panel->messages().setAccount(QStringLiteral("another"));
    m_panel->fill(count + 1);
    QStringList uids;
    for (int number = 0; number <= count; ++number) {
        uids.append(QStringLiteral("m%1").arg(number));
        m_panel->content()->deleteMessage(m_panel->cell(0));
    }
    const QString first = uids.takeFirst();
    expect({QLatin1String("deleted ") + first, QLatin1String("deleted ") + uids.join(QLatin1Char(' '))});
}

void TestMessageReports::aMessageIsReportedOnceARequest()
{
    read(0);
    read(4);
    read(4);
    expect({QStringLiteral("read m0"), QStringLiteral("read m4")});
}

void TestMessageReports::anotherReportFollowsTheOneBefore()
{
    read(0);
    expect({QStringLiteral("read m0")});
    read(1);
    erase(5);
    expect({QStringLiteral("read m0"), QStringLiteral("read m1"), QStringLiteral("deleted m5")});
}

void TestMessageReports::nothingIsSentWithoutCause()
{
    m_panel->content()->sendMessageStatus();
    QVERIFY(!m_panel->isReporting());
    expect({});
}

void TestMessageReports::aFailedReportIsNotRepeated_data()
{
    QTest::addColumn<corvia::Fault::Kind>("kind");
    QTest::addColumn<QByteArray>("text");
    using Kind = corvia::Fault::Kind;
    QTest::newRow("refused") << Kind::Element << QByteArray("<error>No.</error>");
    QTest::newRow("another element") << Kind::Element << QByteArray("<status/>");
    QTest::newRow("not XML") << Kind::Body << QByteArray("no");
    QTest::newRow("nothing") << Kind::Close << QByteArray();
}

void TestMessageReports::aFailedReportIsNotRepeated()
{
    QFETCH(corvia::Fault::Kind, kind);
    QFETCH(QByteArray, text);
    m_panel->account().setFault(kind, 0, text.toStdString(), "message");
    read(0);
    expect({QStringLiteral("read m0")});
    QVERIFY(m_panel->message(0).isRead());

    m_panel->account().setFault(corvia::Fault::Kind::None);
    QVERIFY(m_panel->account().logIn());
    erase(2);
    expect({QStringLiteral("read m0"), QStringLiteral("deleted m2")});
}

void TestMessageReports::reportsFromBeforeTheLoginFollowIt()
{
    m_panel->restart();
    read(3);
    erase(4);
    QVERIFY(m_panel->isReporting());
    QVERIFY(m_panel->account().logIn());
    expect({QStringLiteral("read m3"), QStringLiteral("deleted m4")});
}

void TestMessageReports::anotherUsersLoginReportsNothingOfTheUserBefore()
{
    m_panel->restart();
    read(3);
    erase(4);
    QVERIFY(logInAsAnother());
    QVERIFY(!m_panel->isReporting());
    m_panel->fill(2);
    erase(0);
    erase(1);
    expect({QStringLiteral("deleted m0"), QStringLiteral("deleted m1")});
}

void TestMessageReports::aLogoutReportsNothingUnderTheNextUser()
{
    m_panel->account().setFault(corvia::Fault::Kind::Stall, 0, {}, "message");
    erase(3);
    erase(4);
    QTRY_COMPARE_WITH_TIMEOUT(m_panel->reports(), QStringList{QStringLiteral("deleted m3")}, 60'000);
    m_panel->account().connector().logOut();
    m_panel->account().setFault(corvia::Fault::Kind::None);
    QVERIFY(logInAsAnother());
    m_panel->fill(2);
    erase(0);
    expect({QStringLiteral("deleted m3"), QStringLiteral("deleted m0")});
}

void TestMessageReports::theEndOfTheProgramLeavesNothingWaiting()
{
    m_panel->account().setFault(corvia::Fault::Kind::Stall, 0, {}, "message");
    erase(0);
    erase(1);
    QVERIFY(m_panel->account().connector().shutDown());
    QTRY_VERIFY_WITH_TIMEOUT(!m_panel->isReporting(), 60'000);
    erase(2);
    QTRY_VERIFY_WITH_TIMEOUT(!m_panel->isReporting(), 60'000);
    QVERIFY(m_panel->content()->pendingDeleted.isEmpty());
}

void TestMessageReports::aPanelMayGoWhileItsRequestIsInFlight()
{
    m_panel->account().setFault(corvia::Fault::Kind::Delay, 50, {}, "message");
    erase(0);
    erase(1);
    const QWeakPointer<CVMessageRequest> request = m_panel->content()->request;
    m_panel->close();
    QTRY_VERIFY_WITH_TIMEOUT(request.isNull(), 60'000);
    QCOMPARE(m_panel->reports(), QStringList{QStringLiteral("deleted m0")});
}

QTEST_MAIN(TestMessageReports)
#include "tst_messagereports.moc"
