// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "journal.h"
#include "recordingrequest.h"
#include "serviceaccount.h"

#include <halvora/connector.h>
#include <halvora/hserver.h>

#include <QSemaphore>
#include <QtTest>

Q_DECLARE_METATYPE(corvia::Fault::Kind)

using Fault = corvia::Fault::Kind;
using Kind = RequestFailure::Kind;
using RequestPointer = QSharedPointer<RecordingRequest>;

class HServerDeadlineTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aServiceThatIsTooSlowTimesOutAndTheNextRequestWorks_data();
    void aServiceThatIsTooSlowTimesOutAndTheNextRequestWorks();
    void preparationCountsAndIsInterrupted();
    void aReplyThatWasParsedTooLateDoesNotCount();
    void aDeadlineThatHasPassedBeforeTheExchangeSendsNothing();
    void aDeadlineThatComesTooLateHitsNobody();
    void askingWhetherARequestMayGoStartsNoDeadline();

private:
    RequestPointer make(const QString &name);
    /// A step that ends when the worker is interrupted, or after a while.
    static RecordingRequest::Step untilInterrupted(bool answer);

    std::unique_ptr<ServiceAccount> m_account;
    std::unique_ptr<Journal> m_journal;
};

void HServerDeadlineTest::init()
{
    m_journal = std::make_unique<Journal>();
    m_account = std::make_unique<ServiceAccount>();
    QVERIFY(m_account->logIn());
}

void HServerDeadlineTest::cleanup()
{
    m_account.reset();
    QVERIFY(!RecordingRequest::wasDestroyedElsewhere());
}

RequestPointer HServerDeadlineTest::make(const QString &name)
{
    return RecordingRequest::eager(&m_account->connector(), name, m_journal.get());
}

RecordingRequest::Step HServerDeadlineTest::untilInterrupted(bool answer)
{
    return [answer] {
        for (int i = 0; i < 30'000 && !QThread::currentThread()->isInterruptionRequested(); ++i)
            QThread::msleep(1);
        return answer;
    };
}

void HServerDeadlineTest::aServiceThatIsTooSlowTimesOutAndTheNextRequestWorks_data()
{
    QTest::addColumn<corvia::Fault::Kind>("fault");
    QTest::newRow("no answer") << Fault::Stall;
    QTest::newRow("a byte now and then") << Fault::Drip;
    QTest::newRow("a late answer") << Fault::Delay;
}

void HServerDeadlineTest::aServiceThatIsTooSlowTimesOutAndTheNextRequestWorks()
{
    QFETCH(corvia::Fault::Kind, fault);
    HServer &server = m_account->server();
    m_account->setFault(fault, fault == Fault::Drip ? 50 : 5000);
    server.setRequestDeadline(300);
    const RequestPointer slow = make(QStringLiteral("slow"));
    server.addRequestToQueue(slow);
    QTRY_COMPARE(slow->deliveries(), 1);
    QVERIFY(!slow->isSuccessful());
    QCOMPARE(slow->failure().kind(), Kind::TimedOut);
    QCOMPARE(server.connectorState(), HServer::ServiceLost);

    m_account->setFault(Fault::None);
    server.setRequestDeadline(30'000);
    const RequestPointer next = make(QStringLiteral("next"));
    server.addRequestToQueue(next);
    QTRY_COMPARE(next->deliveries(), 1);
    QVERIFY(next->isSuccessful());
    QCOMPARE(m_account->requestCount(), 3);
}

void HServerDeadlineTest::preparationCountsAndIsInterrupted()
{
    HServer &server = m_account->server();
    server.setRequestDeadline(300);
    const RequestPointer slow = make(QStringLiteral("slow"));
    slow->onPrepare = untilInterrupted(true);
    server.addRequestToQueue(slow);
    const RequestPointer next = make(QStringLiteral("next"));
    const auto wasInterrupted = std::make_shared<std::atomic<bool>>(true);
    next->onPrepare = [wasInterrupted] {
        *wasInterrupted = QThread::currentThread()->isInterruptionRequested();
        return true;
    };
    QTRY_COMPARE(slow->deliveries(), 1);
    QCOMPARE(slow->failure().kind(), Kind::TimedOut);
    QCOMPARE(m_account->requestCount(), 1);

    server.setRequestDeadline(30'000);
    server.addRequestToQueue(next);
    QTRY_COMPARE(next->deliveries(), 1);
    QVERIFY(next->isSuccessful());
    QVERIFY(!*wasInterrupted);
}

void HServerDeadlineTest::aReplyThatWasParsedTooLateDoesNotCount()
{
    HServer &server = m_account->server();
    server.setRequestDeadline(1000);
    const RequestPointer request = make(QStringLiteral("one"));
    request->onParse = [] { untilInterrupted(true)(); };
    server.addRequestToQueue(request);
    QTRY_COMPARE(request->deliveries(), 1);
    QVERIFY(!request->isSuccessful());
    QCOMPARE(request->failure().kind(), Kind::BadReply);
    QCOMPARE(server.connectorState(), HServer::Connected); // it did answer
    QCOMPARE(request->reply().tagName(), QStringLiteral("status"));
}

void HServerDeadlineTest::aDeadlineThatHasPassedBeforeTheExchangeSendsNothing()
{
    HServer &server = m_account->server();
    server.setRequestDeadline(0);
    const RequestPointer request = make(QStringLiteral("one"));
    server.addRequestToQueue(request);
    QTRY_COMPARE(request->deliveries(), 1);
    QCOMPARE(request->failure().kind(), Kind::TimedOut);
    QCOMPARE(m_account->requestCount(), 1);
}

// The GUI thread is busy when the first request ends and still when its deadline passes.
void HServerDeadlineTest::aDeadlineThatComesTooLateHitsNobody()
{
    HServer &server = m_account->server();
    QSemaphore firstMayEnd;
    QSemaphore secondMayEnd;
    const RequestPointer first = make(QStringLiteral("first"));
    first->onPrepare = [&firstMayEnd] { return firstMayEnd.tryAcquire(1, 30'000) && false; };
    const RequestPointer second = make(QStringLiteral("second"));
    const auto wasInterrupted = std::make_shared<std::atomic<bool>>(true);
    second->onPrepare = [&secondMayEnd, wasInterrupted] {
        const bool inTime = secondMayEnd.tryAcquire(1, 30'000);
        *wasInterrupted = QThread::currentThread()->isInterruptionRequested();
        return inTime;
    };

    server.setRequestDeadline(1000);
    QElapsedTimer sinceTaken;
    sinceTaken.start();
    server.addRequestToQueue(first);
    QTRY_VERIFY(m_journal->count(QStringLiteral("first prepare")) == 1);
    QCoreApplication::processEvents(); // the deadline is being waited for now
    server.setRequestDeadline(30'000);
    server.addRequestToQueue(second);
    firstMayEnd.release();
    while (sinceTaken.elapsed() < 1500)
        QThread::msleep(10);

    QTRY_VERIFY(m_journal->count(QStringLiteral("second prepare")) == 1);
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents();
    secondMayEnd.release();
    QTRY_COMPARE(second->deliveries(), 1);
    QCOMPARE(first->failure().kind(), Kind::CredentialsTest);
    QVERIFY(!*wasInterrupted);
    QVERIFY(second->isSuccessful());
}

// A request is asked whenever something changes; the time it waits is not its own.
void HServerDeadlineTest::askingWhetherARequestMayGoStartsNoDeadline()
{
    HServer &server = m_account->server();
    server.setRequestDeadline(1000);
    const auto mayGo = std::make_shared<std::atomic<bool>>(false);
    const RequestPointer request = make(QStringLiteral("one"));
    request->onAllowed = [mayGo](bool, bool) { return mayGo->load(); };
    server.addRequestToQueue(request);
    for (int i = 0; i < 15; ++i) {
        QTest::qWait(100);
        server.setRequestDeadline(1000); // asked again
    }
    QCOMPARE(request->deliveries(), 0);
    *mayGo = true;
    server.setRequestDeadline(10'000);
    QTRY_COMPARE(request->deliveries(), 1);
    QVERIFY(request->isSuccessful());
}

QTEST_MAIN(HServerDeadlineTest)
#include "tst_hserver_deadline.moc"
