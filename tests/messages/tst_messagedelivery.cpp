// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "serviceaccount.h"
#include "testlogin.h"

#include <halvora/connector.h>
#include <halvora/hmessagemanager.h>
#include <halvora/hserver.h>

#include <QXmlStreamWriter>
#include <QtTest>

#include <memory>

using corvia::Fault;

namespace {

constexpr int patience = 60'000; // milliseconds

const char *const scenario =
    "<scenario version='1'>"
    "<account user='demo' password='pinegate'>"
    "<messages>"
    "<message uid='old' date='1767225600000' read='true' deletable='false'>Old &amp; fixed</message>"
    "<message uid='new' date='1767225600002' url='https://www.corvia.example/new'>New</message>"
    "<message uid='middle' date='1767225600001'>Middle</message>"
    "</messages>"
    "</account>"
    "<account user='other' password='pinegate'>"
    "<messages><message uid='new' date='1767225600000'>For another one</message></messages>"
    "</account>"
    "</scenario>";

class StatusRequest final : public HRequest {
public:
    using HRequest::HRequest;
    void buildRequestInternal(QXmlStreamWriter &writer) override
    {
        writer.writeEmptyElement(QStringLiteral("status"));
    }
};

corvia::Message serviceMessage(const char *uid, const char *text)
{
    corvia::Message message;
    message.uid = uid;
    message.text = text;
    return message;
}

} // namespace

/// The way of a message from the account service into the list.
class MessageDeliveryTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void theLoginBringsTheAccountsMessages();
    void aLaterReplyBringsWhatCameSince();
    void aReplyWithoutMessagesIsNoNews();
    void messagesAreThereBeforeALogin();
    void aDeletionHoldsThoughTheServiceWasNotTold();
    void anotherAccountSeesOnlyItsOwn();
    void aLogoutEmptiesTheListUntilTheNextLogin();
    void aReplyThatALogoutOvertookBringsNothing();
    void aLoginThatALogoutOvertookBringsNothing();
    void aSlotThatLogsOutLeavesNothing();
    void aLoginThatIsNotAppliedBringsNothing();
    void errorsBringMessagesOnlyIntoTheirSession_data();
    void errorsBringMessagesOnlyIntoTheirSession();
    void aRefusedLoginBringsNothing();
    void messagesOfARequestGoToTheAccountThatSentIt();
    void messagesOfALoginGoToTheAccountThatSentIt();
    void aReplyOfAnEarlierSessionBringsNothing();
    void badMessagesDoNotKeepTheGoodOnesAway();

private:
    HMessageManager &messages() { return *m_account->connector().messages(); }
    QString uids();
    QSharedPointer<HRequest> ask();
    void setReply(const std::string &content, const std::string &request);

    std::unique_ptr<ServiceAccount> m_account;
};

void MessageDeliveryTest::init()
{
    m_account = std::make_unique<ServiceAccount>(corvia::Options(), scenario);
    QCOMPARE(m_account->problem(), QString());
}

void MessageDeliveryTest::cleanup()
{
    m_account.reset();
}

QString MessageDeliveryTest::uids()
{
    QStringList found;
    for (int row = 0; row < messages().rowCount(); ++row)
        found.append(messages().messageAt(row).uid());
    return found.join(QLatin1Char(' '));
}

QSharedPointer<HRequest> MessageDeliveryTest::ask()
{
    QSharedPointer<HRequest> request(new StatusRequest(&m_account->connector()));
    m_account->server().addRequestToQueue(request);
    return request;
}

void MessageDeliveryTest::setReply(const std::string &content, const std::string &request)
{
    m_account->setFault(Fault::Kind::Element, 0, content, request);
}

void MessageDeliveryTest::theLoginBringsTheAccountsMessages()
{
    QSignalSpy news(&messages(), &HMessageManager::newMessagesArrived);
    QVERIFY(m_account->logIn());
    QCOMPARE(uids(), QStringLiteral("new middle old"));
    QCOMPARE(news.size(), 1);
    const HMessage newest = messages().messageAt(0);
    QCOMPARE(newest.text(), QStringLiteral("New"));
    QCOMPARE(newest.date(), QDateTime::fromMSecsSinceEpoch(1'767'225'600'002, Qt::UTC));
    QCOMPARE(newest.url().url(), QUrl(QStringLiteral("https://www.corvia.example/new")));
    QVERIFY(!newest.isRead());
    QVERIFY(newest.isDeletable());
    const HMessage oldest = messages().messageAt(2);
    QCOMPARE(oldest.text(), QStringLiteral("Old & fixed"));
    QVERIFY(oldest.isRead());
    QVERIFY(!oldest.isDeletable());
}

void MessageDeliveryTest::aLaterReplyBringsWhatCameSince()
{
    QVERIFY(m_account->logIn());
    m_account->service().addMessage("demo", serviceMessage("later", "Later"));
    QSignalSpy news(&messages(), &HMessageManager::newMessagesArrived);
    const auto request = ask();
    int rowsInSlot = -1;
    connect(request.data(), &HRequest::requestFinished, this, [&] { rowsInSlot = messages().rowCount(); });
    QTRY_COMPARE_WITH_TIMEOUT(uids(), QStringLiteral("later new middle old"), patience);
    QCOMPARE(news.size(), 1);
    QCOMPARE(rowsInSlot, 3);
    QVERIFY(request->isSuccessful());
}

void MessageDeliveryTest::aReplyWithoutMessagesIsNoNews()
{
    QVERIFY(m_account->logIn());
    QSignalSpy received(&m_account->server(), &HServer::messagesReceived);
    const auto request = ask();
    const QSignalSpy finished(request.data(), &HRequest::requestFinished);
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, patience);
    QVERIFY(request->isSuccessful());
    QCOMPARE(received.size(), 0);
}

void MessageDeliveryTest::messagesAreThereBeforeALogin()
{
    QVERIFY(m_account->logIn());
    messages().markMessageAsRead(0);
    m_account->restart();
    QCOMPARE(uids(), QStringLiteral("new middle old"));
    QVERIFY(messages().messageAt(0).isRead());
    QSignalSpy news(&messages(), &HMessageManager::newMessagesArrived);
    QVERIFY(m_account->logIn());
    QCOMPARE(uids(), QStringLiteral("new middle old"));
    QVERIFY(messages().messageAt(0).isRead());
    QCOMPARE(news.size(), 0);
}

void MessageDeliveryTest::aDeletionHoldsThoughTheServiceWasNotTold()
{
    QVERIFY(m_account->logIn());
    messages().deleteMessage(1);
    QVERIFY(m_account->logIn());
    QCOMPARE(uids(), QStringLiteral("new old"));
    m_account->restart();
    QVERIFY(m_account->logIn());
    QCOMPARE(uids(), QStringLiteral("new old"));
    QCOMPARE(m_account->service().messages("demo").size(), std::size_t(3));
}

void MessageDeliveryTest::anotherAccountSeesOnlyItsOwn()
{
    QVERIFY(m_account->logIn());
    messages().deleteMessage(0);
    m_account->connector().setAccount(QStringLiteral("other"), QStringLiteral("pinegate"));
    QVERIFY(m_account->logIn());
    QCOMPARE(uids(), QStringLiteral("new"));
    QCOMPARE(messages().messageAt(0).text(), QStringLiteral("For another one"));
    m_account->restart();
    QCOMPARE(uids(), QStringLiteral("new"));
    QVERIFY(m_account->logIn());
    QCOMPARE(uids(), QStringLiteral("middle old"));
}

void MessageDeliveryTest::aLogoutEmptiesTheListUntilTheNextLogin()
{
    QVERIFY(m_account->logIn());
    messages().deleteMessage(0);
    m_account->connector().logOut();
    QCOMPARE(messages().rowCount(), 0);
    m_account->restart();
    QCOMPARE(messages().rowCount(), 0);
    QVERIFY(m_account->logIn());
    QCOMPARE(uids(), QStringLiteral("middle old"));
}

void MessageDeliveryTest::aReplyThatALogoutOvertookBringsNothing()
{
    QVERIFY(m_account->logIn());
    QSignalSpy received(&m_account->server(), &HServer::messagesReceived);
    m_account->service().addMessage("demo", serviceMessage("later", "Later"));
    const auto request = ask();
    QSignalSpy finished(request.data(), &HRequest::requestFinished);
    // No event loop until the reply has been sent and, most likely, put away.
    for (int i = 0; i < patience / 5 && m_account->requestCount() < 2; ++i)
        QThread::msleep(5);
    QThread::msleep(50);
    m_account->connector().logOut();
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, patience);
    QCOMPARE(received.size(), 0);
    QCOMPARE(messages().rowCount(), 0);
}

void MessageDeliveryTest::aLoginThatALogoutOvertookBringsNothing()
{
    QSignalSpy received(&m_account->server(), &HServer::messagesReceived);
    m_account->setFault(Fault::Kind::Stall);
    const QSharedPointer<TestLogin> login(new TestLogin(&m_account->connector()));
    QSignalSpy finished(login.data(), &HRequest::requestFinished);
    m_account->server().addRequestToQueue(login);
    QTRY_COMPARE_WITH_TIMEOUT(m_account->requestCount(), 1, patience);
    m_account->connector().logOut();
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, patience);
    QCOMPARE(received.size(), 0);
}

void MessageDeliveryTest::aSlotThatLogsOutLeavesNothing()
{
    QVERIFY(m_account->logIn());
    QSignalSpy received(&m_account->server(), &HServer::messagesReceived);
    m_account->service().addMessage("demo", serviceMessage("later", "Later"));
    const auto request = ask();
    QSignalSpy finished(request.data(), &HRequest::requestFinished);
    connect(request.data(), &HRequest::requestFinished, this, [this] { m_account->connector().logOut(); });
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, patience);
    QVERIFY(request->isSuccessful());
    QCOMPARE(received.size(), 0);
    QCOMPARE(messages().rowCount(), 0);
}

void MessageDeliveryTest::aLoginThatIsNotAppliedBringsNothing()
{
    QVERIFY(m_account->logIn());
    QSignalSpy received(&m_account->server(), &HServer::messagesReceived);
    m_account->connector().setAccount(QStringLiteral("other"), QStringLiteral("pinegate"));
    const QSharedPointer<TestLogin> login(new TestLogin(&m_account->connector()));
    QSignalSpy finished(login.data(), &HRequest::requestFinished);
    m_account->server().addRequestToQueue(login);
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, patience);
    QVERIFY(login->isSuccessful());
    QCOMPARE(received.size(), 0);
    QCOMPARE(uids(), QStringLiteral("new middle old"));
}

void MessageDeliveryTest::errorsBringMessagesOnlyIntoTheirSession_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("shown");
    QTest::newRow("unavailable") << QStringLiteral("unavailable") << QStringLiteral("later new middle old");
    QTest::newRow("request") << QStringLiteral("request") << QStringLiteral("later new middle old");
    QTest::newRow("session") << QStringLiteral("session") << QStringLiteral("new middle old");
}

void MessageDeliveryTest::errorsBringMessagesOnlyIntoTheirSession()
{
    QFETCH(QString, code);
    QVERIFY(m_account->logIn());
    setReply("<error code=\"" + code.toStdString() +
                 "\">No.</error><messages><message uid=\"later\">Later</message></messages>",
             "status");
    const auto request = ask();
    QSignalSpy finished(request.data(), &HRequest::requestFinished);
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, patience);
    QVERIFY(!request->isSuccessful());
    QTEST(uids(), "shown");
}

void MessageDeliveryTest::aRefusedLoginBringsNothing()
{
    QSignalSpy received(&m_account->server(), &HServer::messagesReceived);
    setReply("<error code=\"credentials\">No.</error><messages><message uid=\"a\">A</message></messages>",
             "login");
    QVERIFY(!m_account->logIn());
    QCOMPARE(received.size(), 0);
    QCOMPARE(messages().rowCount(), 0);
}

// Somebody types another name while a reply is on its way.
void MessageDeliveryTest::messagesOfARequestGoToTheAccountThatSentIt()
{
    QVERIFY(m_account->logIn());
    m_account->service().addMessage("demo", serviceMessage("later", "Later"));
    const auto request = ask();
    m_account->connector().setAccount(QStringLiteral("other"), QStringLiteral("pinegate"));
    QTRY_COMPARE_WITH_TIMEOUT(uids(), QStringLiteral("later new middle old"), patience);
    QVERIFY(m_account->logIn());
    QCOMPARE(uids(), QStringLiteral("new"));
}

void MessageDeliveryTest::messagesOfALoginGoToTheAccountThatSentIt()
{
    m_account->setFault(Fault::Kind::Delay, 100);
    const QSharedPointer<TestLogin> login(new TestLogin(&m_account->connector()));
    QSignalSpy finished(login.data(), &HRequest::requestFinished);
    connect(login.data(), &HRequest::requestFinished, this,
            [this, request = login.data()] { m_account->plugin().applyLogin(request); });
    m_account->server().addRequestToQueue(login);
    QTRY_COMPARE_WITH_TIMEOUT(m_account->requestCount(), 1, patience);
    m_account->connector().setAccount(QStringLiteral("other"), QStringLiteral("pinegate"));
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, patience);
    QCOMPARE(login->userName(), QStringLiteral("demo"));
    QCOMPARE(uids(), QStringLiteral("new middle old"));
    QVERIFY(m_account->logIn());
    QCOMPARE(uids(), QStringLiteral("new"));
}

void MessageDeliveryTest::aReplyOfAnEarlierSessionBringsNothing()
{
    QVERIFY(m_account->logIn());
    QSignalSpy received(&m_account->server(), &HServer::messagesReceived);
    m_account->service().addMessage("demo", serviceMessage("later", "Later"));
    const auto request = ask();
    QSignalSpy finished(request.data(), &HRequest::requestFinished);
    connect(request.data(), &HRequest::requestFinished, this,
            [this] { m_account->server().logIn(QStringLiteral("another-session")); });
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, patience);
    QVERIFY(request->isSuccessful());
    QCOMPARE(received.size(), 0);
}

void MessageDeliveryTest::badMessagesDoNotKeepTheGoodOnesAway()
{
    QVERIFY(m_account->logIn());
    const std::string longText(1'000'000, 'x');
    setReply("<success/><messages><message>No uid</message><message uid=\" \">Blank</message>"
             "<odd/>text<message uid=\"b\" date=\"soon\" url=\"http://[\">" +
                 longText + "</message><message uid=\"b\">Again</message></messages>",
             "status");
    ask();
    QTRY_COMPARE_WITH_TIMEOUT(uids(), QStringLiteral("b new middle old"), patience);
    QCOMPARE(messages().messageAt(0).text(), QStringLiteral("Again"));
    QVERIFY(messages().messageAt(0).url().isNull());
}

QTEST_MAIN(MessageDeliveryTest)
#include "tst_messagedelivery.moc"
