// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "serviceaccount.h"
#include "testlogin.h"

#include <halvora/connector.h>
#include <halvora/hserver.h>

#include <QtTest>

class HLoginRequestTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aLoginBringsWhatTheServiceTells();
    void withoutAnUpdateThereIsNone();
    void whatMakesNoSenseIsLeftOut_data();
    void whatMakesNoSenseIsLeftOut();
    void namesAsLongAsMayBeAreKept();
    void listsHaveAnEnd();
    void anyOtherReplyIsNoLogin_data();
    void anyOtherReplyIsNoLogin();
    void aSessionWordIsHeldToItsRules_data();
    void aSessionWordIsHeldToItsRules();
    void afterABadSessionWordTheNextLoginHelps();
    void untilTheReplyTheHostsAreThoseOfTheLastAppliedLogin();
    void theHostsOfTheLastLoginOutliveARestart();
    void aLoginThatWasNotAppliedIsForgotten();

private:
    static QSharedPointer<TestLogin> send(ServiceAccount &account);
    static QSharedPointer<TestLogin> answered(ServiceAccount &account, const std::string &login);
};

namespace {

const std::string scenario = R"(
<scenario version="1" auto-search-interval="600">
  <account user="demo" password="pinegate">
    <servers>
      <server host="news.corvia.example" port="563" ssl="true"/>
      <server host="plain.corvia.example" port="119" ssl="false"/>
    </servers>
    <links><link key="home" url="https://www.corvia.example/?a=1&amp;b=2"/></links>
    <software-update version="9.9" url="https://www.corvia.example/get">Faster &amp; nicer.</software-update>
    <status supported="true"/>
  </account>
</scenario>)";

QList<NntpHost> scenarioHosts()
{
    return {NntpHost(QStringLiteral("news.corvia.example"), 563, true),
            NntpHost(QStringLiteral("plain.corvia.example"), 119, false)};
}

} // namespace

QSharedPointer<TestLogin> HLoginRequestTest::send(ServiceAccount &account)
{
    const QSharedPointer<TestLogin> login(new TestLogin(&account.connector()));
    QSignalSpy finished(login.data(), &HRequest::requestFinished);
    account.server().prependRequestToQueue(login);
    finished.wait(30'000);
    return login;
}

QSharedPointer<TestLogin> HLoginRequestTest::answered(ServiceAccount &account, const std::string &login)
{
    account.setFault(corvia::Fault::Kind::Body, 0, "<reply version=\"1\">" + login + "</reply>");
    return send(account);
}

void HLoginRequestTest::aLoginBringsWhatTheServiceTells()
{
    ServiceAccount account(corvia::Options(), scenario);
    QCOMPARE(account.problem(), QString());
    const auto login = send(account);
    QVERIFY(login->isSuccessful());
    QVERIFY(login->isLoginRequest());
    QCOMPARE(login->nntpHosts(), scenarioHosts());
    QCOMPARE(login->autoSearchCheckInterval(), 600);
    QCOMPARE(login->session().size(), 40);
    QCOMPARE(login->links().size(), 1);
    QCOMPARE(login->links().value(QStringLiteral("home")).url(),
             QUrl(QStringLiteral("https://www.corvia.example/?a=1&b=2")));
    QCOMPARE(login->softwareUpdateElement().attribute(QStringLiteral("version")), QStringLiteral("9.9"));
    QCOMPARE(login->softwareUpdateElement().text(), QStringLiteral("Faster & nicer."));
}

void HLoginRequestTest::withoutAnUpdateThereIsNone()
{
    ServiceAccount account;
    const auto login = send(account);
    QVERIFY(login->isSuccessful());
    QVERIFY(login->softwareUpdateElement().isNull());
    QCOMPARE(login->nntpHosts().size(), 2);
}

void HLoginRequestTest::whatMakesNoSenseIsLeftOut_data()
{
    QTest::addColumn<QByteArray>("inside");
    QTest::addColumn<QByteArray>("interval");
    QTest::newRow("nothing") << QByteArray() << QByteArray();
    QTest::newRow("host without a name")
        << QByteArray("<nntp-servers><server port=\"119\"/></nntp-servers>") << QByteArray("-5");
    QTest::newRow("host of blanks") << QByteArray(
                                           "<nntp-servers><server host=\"  \" port=\"119\"/></nntp-servers>")
                                    << QByteArray("soon");
    QTest::newRow("no port") << QByteArray("<nntp-servers><server host=\"a.example\"/></nntp-servers>")
                             << QByteArray("1e3");
    QTest::newRow("port 0") << QByteArray(
                                   "<nntp-servers><server host=\"a.example\" port=\"0\"/></nntp-servers>")
                            << QByteArray("99999999999");
    QTest::newRow("port 65655")
        << QByteArray("<nntp-servers><server host=\"a.example\" port=\"65655\"/></nntp-servers>")
        << QByteArray("-1");
    QTest::newRow("host that is too long")
        << "<nntp-servers><server host=\"" + QByteArray(254, 'a') + "\" port=\"119\"/></nntp-servers>"
        << QByteArray();
    QTest::newRow("link that is too long")
        << "<links><link key=\"home\" url=\"https://a.example/" + QByteArray(2'031, 'a') + "\"/></links>"
        << QByteArray();
    QTest::newRow("key that is too long")
        << "<links><link key=\"" + QByteArray(256, 'k') + "\" url=\"https://a.example/\"/></links>"
        << QByteArray();
    QTest::newRow("link without a key")
        << QByteArray("<links><link url=\"https://a.example/\"/></links>") << QByteArray(" ");
    QTest::newRow("link that is none")
        << QByteArray("<links><link key=\"home\" url=\"https://[\"/></links>") << QByteArray("0");
}

void HLoginRequestTest::whatMakesNoSenseIsLeftOut()
{
    QFETCH(QByteArray, inside);
    QFETCH(QByteArray, interval);
    ServiceAccount account;
    const QByteArray reply =
        "<login session=\"word\" auto-search-interval=\"" + interval + "\">" + inside + "</login>";
    const auto login = answered(account, reply.toStdString());
    QVERIFY(login->isSuccessful());
    QVERIFY(login->nntpHosts().isEmpty());
    QVERIFY(login->links().isEmpty());
    QCOMPARE(login->autoSearchCheckInterval(), 0);
}

void HLoginRequestTest::namesAsLongAsMayBeAreKept()
{
    const std::string host(253, 'a');
    const std::string key(255, 'k');
    const std::string url = "https://a.example/" + std::string(2'030, 'a');
    ServiceAccount account;
    const auto login = answered(account, "<login session=\"word\"><nntp-servers><server host=\"" + host +
                                             "\" port=\"119\"/></nntp-servers><links><link key=\"" + key +
                                             "\" url=\"" + url + "\"/></links></login>");
    QCOMPARE(login->nntpHosts().value(0).host(), QString::fromStdString(host));
    QCOMPARE(login->links().keys(), QStringList{QString::fromStdString(key)});
}

void HLoginRequestTest::listsHaveAnEnd()
{
    std::string reply = "<login session=\"word\"><nntp-servers>";
    for (int i = 0; i < 5000; ++i)
        reply += "<server host=\"a" + std::to_string(i) + ".example\" port=\"119\" ssl=\"false\"/>";
    reply += "</nntp-servers><links>";
    for (int i = 0; i < 5000; ++i)
        reply += "<link key=\"" + std::to_string(i) + "\" url=\"https://a.example/\"/>";
    ServiceAccount account;
    const auto login = answered(account, reply + "</links></login>");
    QVERIFY(login->isSuccessful());
    QCOMPARE(login->nntpHosts().size(), 100);
    QCOMPARE(login->links().size(), 100);
}

void HLoginRequestTest::anyOtherReplyIsNoLogin_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::newRow("another element") << QByteArray("<success/>");
    QTest::newRow("another element with a session") << QByteArray("<success session=\"word\"/>");
    QTest::newRow("no session") << QByteArray("<login/>");
    QTest::newRow("an empty session") << QByteArray("<login session=\"\"/>");
}

void HLoginRequestTest::anyOtherReplyIsNoLogin()
{
    QFETCH(QByteArray, reply);
    ServiceAccount account;
    const auto login = answered(account, reply.toStdString());
    QVERIFY(!login->isSuccessful());
    QCOMPARE(login->failure().kind(), RequestFailure::Kind::BadReply);
}

void HLoginRequestTest::aSessionWordIsHeldToItsRules_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::addColumn<bool>("isGood");
    QTest::newRow("one character") << QByteArray("0") << true;
    QTest::newRow("all kinds of characters") << QByteArray("azAZ09.-_") << true;
    QTest::newRow("128 characters") << QByteArray(128, 'x') << true;
    QTest::newRow("129 characters") << QByteArray(129, 'x') << false;
    QTest::newRow("a megabyte") << QByteArray(1 << 20, 'x') << false;
    for (const char *word : {" ", "a b", " a", "a ", "a/b", "a:b", "a&#9;b", "a&#10;", "a&quot;b", "a&lt;b",
                             "@", "[", "`", "{", "\xC3\xA4", "\xEF\xBC\x91", "\xF0\x9D\x9F\x8E", "a&#127;"})
        QTest::newRow(word) << QByteArray(word) << false;
}

void HLoginRequestTest::aSessionWordIsHeldToItsRules()
{
    QFETCH(QByteArray, word);
    QFETCH(bool, isGood);
    ServiceAccount account;
    const auto login = answered(account, "<login session=\"" + word.toStdString() + "\"/>");
    QCOMPARE(login->isSuccessful(), isGood);
    QCOMPARE(login->session(), isGood ? QString::fromLatin1(word) : QString());
    if (!isGood)
        QCOMPARE(login->failure().sentence(), QStringLiteral("The account service's reply cannot be read."));
}

void HLoginRequestTest::afterABadSessionWordTheNextLoginHelps()
{
    ServiceAccount account;
    QSignalSpy refused(&account.server(), &HServer::sessionRefused);
    const auto login = answered(account, "<login session=\"a b\"/>");
    QCOMPARE(account.server().connectorState(), HServer::ServiceLost);
    account.setFault(corvia::Fault::Kind::None);
    QVERIFY(account.logIn());
    QVERIFY(account.connector().isLoginAvailable());
    QCOMPARE(refused.size(), 0);
}

void HLoginRequestTest::untilTheReplyTheHostsAreThoseOfTheLastAppliedLogin()
{
    ServiceAccount account(corvia::Options(), scenario);
    QVERIFY(TestLogin(&account.connector()).nntpHosts().isEmpty());
    QVERIFY(account.logIn());
    QCOMPARE(TestLogin(&account.connector()).nntpHosts(), scenarioHosts());

    // What a reply tells counts for that login alone until it is applied.
    const auto login = answered(account, "<login session=\"word\"><nntp-servers/></login>");
    QVERIFY(login->nntpHosts().isEmpty());
    QCOMPARE(TestLogin(&account.connector()).nntpHosts(), scenarioHosts());
}

void HLoginRequestTest::theHostsOfTheLastLoginOutliveARestart()
{
    ServiceAccount account(corvia::Options(), scenario);
    QVERIFY(account.logIn());
    account.restart();
    QCOMPARE(TestLogin(&account.connector()).nntpHosts(), scenarioHosts());
    account.connector().logOut();
    account.restart();
    QVERIFY(TestLogin(&account.connector()).nntpHosts().isEmpty());
}

void HLoginRequestTest::aLoginThatWasNotAppliedIsForgotten()
{
    ServiceAccount account(corvia::Options(), scenario);
    QVERIFY(send(account)->isSuccessful());
    QVERIFY(!account.connector().isLoginAvailable());
    account.restart();
    QVERIFY(account.connector().nntpHosts().isEmpty());
}

QTEST_MAIN(HLoginRequestTest)
#include "tst_hloginrequest.moc"
