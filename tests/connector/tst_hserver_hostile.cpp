// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "heartbeat.h"
#include "journal.h"
#include "recordingrequest.h"
#include "sanitized.h"
#include "serviceaccount.h"

#include <halvora/connector.h>
#include <halvora/hserver.h>
#include <halvora/hserveraddressrotator.h>

#include <QtTest>

Q_DECLARE_METATYPE(corvia::Fault::Kind)
Q_DECLARE_METATYPE(RequestFailure::Kind)

using Fault = corvia::Fault::Kind;
using Kind = RequestFailure::Kind;
using RequestPointer = QSharedPointer<RecordingRequest>;

/// A service that does what no service should. Whatever it is: one request, one failure, one sentence, and
/// the next request works.
class HServerHostileTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();
    void aServiceThatMisbehavesIsOneFailure_data();
    void aServiceThatMisbehavesIsOneFailure();
    void aReplyThatIsNoneIsOneFailure_data();
    void aReplyThatIsNoneIsOneFailure();
    void aRedirectIsNotFollowed_data();
    void aRedirectIsNotFollowed();
    void theServicesSentenceIsShortAndOnOneLine();

private:
    void sendOne(Kind expected);

    std::unique_ptr<ServiceAccount> m_account;
    std::unique_ptr<Journal> m_journal;
    std::unique_ptr<Heartbeat> m_heartbeat;
};

namespace {

QByteArray wrapped(const QByteArray &inside)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<reply version=\"1\">" + inside + "</reply>";
}

QByteArray attributes(int count)
{
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += " a" + QByteArray::number(i) + "=\"\"";
    return text;
}

QByteArray laughs()
{
    QByteArray text = "<!DOCTYPE reply [<!ENTITY l0 \"ha\">";
    for (int i = 1; i < 30; ++i) {
        const QByteArray before = "&l" + QByteArray::number(i - 1) + ";";
        text += "<!ENTITY l" + QByteArray::number(i) + " \"" + before.repeated(10) + "\">";
    }
    return text + "]><reply version=\"1\"><success>&l29;</success></reply>";
}

} // namespace

void HServerHostileTest::initTestCase()
{
    m_heartbeat = std::make_unique<Heartbeat>();
}

void HServerHostileTest::cleanupTestCase()
{
    qInfo("GUI thread: %d beats, longest gap %.1f ms", m_heartbeat->beats(), m_heartbeat->longestGap());
    QVERIFY(m_heartbeat->beats() > 0);
}

void HServerHostileTest::init()
{
    m_journal = std::make_unique<Journal>();
    m_account = std::make_unique<ServiceAccount>();
    QVERIFY(m_account->logIn());
}

void HServerHostileTest::cleanup()
{
    m_account.reset();
    QVERIFY(!RecordingRequest::wasDestroyedElsewhere());
}

void HServerHostileTest::sendOne(Kind expected)
{
    HServer &server = m_account->server();
    const RequestPointer request =
        RecordingRequest::eager(&m_account->connector(), QStringLiteral("one"), m_journal.get());
    server.addRequestToQueue(request);
    QTRY_COMPARE_WITH_TIMEOUT(request->deliveries(), 1, 60'000);
    QVERIFY(!request->isSuccessful());
    QCOMPARE(request->failure().kind(), expected);
    QVERIFY(!request->failure().sentence().isEmpty());
    QVERIFY(request->reply().isNull());
    QCOMPARE(m_journal->lines(QStringLiteral("parse")), QStringList());
    QCOMPARE(m_account->requestCount(), 2);

    m_account->setFault(Fault::None);
    server.setRequestDeadline(30'000);
    const RequestPointer next =
        RecordingRequest::eager(&m_account->connector(), QStringLiteral("next"), m_journal.get());
    server.addRequestToQueue(next);
    QTRY_COMPARE_WITH_TIMEOUT(next->deliveries(), 1, 30'000);
    QVERIFY(next->isSuccessful());
    QCOMPARE(request->deliveries(), 1);
    QCOMPARE(m_account->requestCount(), 3);
}

void HServerHostileTest::aServiceThatMisbehavesIsOneFailure_data()
{
    QTest::addColumn<corvia::Fault::Kind>("fault");
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("deadline");
    QTest::addColumn<RequestFailure::Kind>("kind");
    QTest::newRow("stall") << Fault::Stall << 0 << 300 << Kind::TimedOut;
    QTest::newRow("drip") << Fault::Drip << 20 << 300 << Kind::TimedOut;
    QTest::newRow("endless body") << Fault::Flood << 0 << 30'000 << Kind::TooLarge;
    QTest::newRow("one byte too many") << Fault::Flood << 4 * 1024 * 1024 + 1 << 30'000 << Kind::TooLarge;
    QTest::newRow("body that just fits") << Fault::Flood << 4 * 1024 * 1024 << 30'000 << Kind::BadReply;
    QTest::newRow("endless headers") << Fault::HeaderFlood << 0 << 30'000 << Kind::TooLarge;
    for (const int status : {201, 204, 301, 400, 401, 404, 407, 417, 500, 503})
        QTest::addRow("status %d", status) << Fault::Status << status << 30'000 << Kind::BadStatus;
    QTest::newRow("truncated") << Fault::Truncate << 0 << 30'000 << Kind::Truncated;
    QTest::newRow("closed") << Fault::Close << 0 << 30'000 << Kind::Unreachable;
    QTest::newRow("encoded") << Fault::Encoding << 0 << 30'000 << Kind::BadReply;
}

void HServerHostileTest::aServiceThatMisbehavesIsOneFailure()
{
    QFETCH(corvia::Fault::Kind, fault);
    QFETCH(int, number);
    QFETCH(int, deadline);
    QFETCH(RequestFailure::Kind, kind);
    m_account->setFault(fault, number);
    m_account->server().setRequestDeadline(deadline);
    sendOne(kind);
}

void HServerHostileTest::aReplyThatIsNoneIsOneFailure_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<RequestFailure::Kind>("kind");
    const auto row = [](const char *name, const QByteArray &body, Kind kind = Kind::BadReply) {
        QTest::newRow(name) << body << kind;
    };
    row("nothing", "");
    row("a word", "hello");
    row("a web page", "<!DOCTYPE html><html><body><p>Sign in</body></html>");
    row("broken off", "<reply version=\"1\"><success/>");
    row("two roots", wrapped("<success/>") + wrapped("<success/>"));
    row("DOCTYPE alone", "<!DOCTYPE reply>" + wrapped("<success/>").mid(39));
    row("DOCTYPE with an entity",
        "<!DOCTYPE reply [<!ENTITY a \"b\">]><reply version=\"1\"><success>&a;</success></reply>");
    row("DOCTYPE with an outside entity",
        "<!DOCTYPE reply [<!ENTITY a SYSTEM \"file:///etc/passwd\">]><reply "
        "version=\"1\"><success>&a;</success></reply>");
    row("DOCTYPE from outside",
        "<!DOCTYPE reply SYSTEM \"http://localhost:1/reply.dtd\"><reply version=\"1\"><success/></reply>");
    row("entities of entities", laughs());
    row("a million deep", QByteArray("<a>").repeated(1'000'000));
    row("65 deep", wrapped(QByteArray("<a>").repeated(64) + QByteArray("</a>").repeated(64)));
    row("40000 attributes", wrapped("<success" + attributes(40'000) + "/>"));
    row("65 attributes", wrapped("<success" + attributes(65) + "/>"));
    row("the same attribute to the limit",
        wrapped("<success" + QByteArray(" a=''").repeated(838'000 / sanitizedShare) + "/>"));
    row("100001 elements", wrapped(QByteArray("<a/>").repeated(100'000)), Kind::TooLarge);
    row("20001 newsgroups",
        wrapped("<bookmarks>" + QByteArray("<newsgroup/>").repeated(20'001) + "</bookmarks>"),
        Kind::TooLarge);
    row("a name of 513 characters",
        wrapped("<bookmarks><name>" + QByteArray(513, 'a') + "</name></bookmarks>"), Kind::TooLarge);
    row("another root", "<response version=\"1\"><success/></response>");
    row("another version", "<reply version=\"2\"><success/></reply>");
    row("no version", "<reply><success/></reply>");
    row("no content", wrapped(""));
    row("only text", wrapped("success"));
    row("UTF-16 that is none",
        "<?xml version=\"1.0\" encoding=\"UTF-16\"?><reply version=\"1\"><success/></reply>");
    row("zero bytes in the text", wrapped("<success>" + QByteArray(5, '\0') + "</success>"));
    row("zero bytes alone", QByteArray(1000, '\0'));
    row("a control character", wrapped("<success>\x01</success>"));
    row("a reference to a control character", wrapped("<success a=\"&#7;\"/>"));
    row("a reference to half a surrogate pair", wrapped("<success>&#xD800;</success>"));
    row("refusal", wrapped("<error code=\"unavailable\">Later.</error>"), Kind::Refused);
    row("refusal for an unknown reason", wrapped("<error code=\"moon\"/>"), Kind::Refused);
    row("refusal without a reason", wrapped("<error/>"), Kind::Refused);
}

void HServerHostileTest::aReplyThatIsNoneIsOneFailure()
{
    QFETCH(QByteArray, body);
    QFETCH(RequestFailure::Kind, kind);
    m_account->setFault(Fault::Body, 0, body.toStdString());
    sendOne(kind);
}

void HServerHostileTest::aRedirectIsNotFollowed_data()
{
    QTest::addColumn<int>("status");
    for (const int status : {301, 302, 303, 307, 308})
        QTest::addRow("status %d", status) << status;
}

void HServerHostileTest::aRedirectIsNotFollowed()
{
    QFETCH(int, status);
    const std::string self =
        "https://localhost:" + std::to_string(m_account->service().accountPort()) + "/account";
    m_account->setFault(Fault::Redirect, status, self);
    sendOne(Kind::BadStatus);
}

void HServerHostileTest::theServicesSentenceIsShortAndOnOneLine()
{
    const std::string lines = "One.\n\n\tTwo. " + std::string(100'000, 'x');
    m_account->setFault(Fault::Body, 0,
                        "<reply version=\"1\"><error code=\"unavailable\">" + lines + "</error></reply>");
    const RequestPointer request =
        RecordingRequest::eager(&m_account->connector(), QStringLiteral("one"), m_journal.get());
    m_account->server().addRequestToQueue(request);
    QTRY_COMPARE(request->deliveries(), 1);
    const QString sentence = request->failure().sentence();
    QVERIFY(sentence.startsWith(QStringLiteral("One. Two. xxx")));
    QVERIFY(sentence.size() <= 300);
}

QTEST_MAIN(HServerHostileTest)
#include "tst_hserver_hostile.moc"
