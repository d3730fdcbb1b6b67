// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "embedded.h"
#include "schema.h"
#include "servicefixture.h"

#include <QtTest>
#include <chrono>
#include <memory>

Q_DECLARE_METATYPE(std::string)
Q_DECLARE_METATYPE(std::vector<std::string>)

namespace {

bool holds(const std::string &reply, const std::string &text)
{
    return reply.find(text) != std::string::npos;
}

std::string uidsOf(const std::vector<corvia::Message> &messages)
{
    std::string uids;
    for (const corvia::Message &message : messages) {
        uids += (uids.empty() ? "" : " ") + message.uid + (message.read ? "+" : "");
    }
    return uids;
}

corvia::Message newMessage(const std::string &uid, const std::string &text)
{
    corvia::Message message;
    message.uid = uid;
    message.text = text;
    return message;
}

} // namespace

/// What the service tells its customers by messages, and what it makes of their reports.
class TestCorviaMessages : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ServiceFixture> fixture_;

    std::string status(const std::string &session)
    {
        return fixture_->post(ServiceFixture::statusRequest(session)).body;
    }
    std::string report(const std::string &session, const std::vector<std::string> &read,
                       const std::vector<std::string> &deleted)
    {
        return fixture_->post(ServiceFixture::messageRequest(session, read, deleted)).body;
    }
    corvia::CorviaService &service() { return fixture_->service(); }

private Q_SLOTS:
    void init()
    {
        fixture_ = std::make_unique<ServiceFixture>();
        QCOMPARE(fixture_->problem(), std::string());
    }

    void aLoginTellsAllMessages()
    {
        const std::string reply = fixture_->post(ServiceFixture::loginRequest("ada")).body;
        QVERIFY(holds(reply,
                      "</login><messages><message uid=\"fixed\" date=\"0\" read=\"true\" "
                      "deletable=\"false\">Fixed &amp; &lt;old&gt;</message><message uid=\"aged\" date="));
        QVERIFY(holds(reply, " url=\"https://www.corvia.example/?a=1&amp;b=2\" read=\"false\" "
                             "deletable=\"true\">Aged</message><message uid=\"plain\" read=\"false\" "
                             "deletable=\"true\">Plain</message></messages></reply>"));
    }

    void ofTooManyMessagesTheLastAreTold()
    {
        for (int i = 0; i < 9'997; ++i) {
            service().addMessage("ada", newMessage(std::to_string(i), "Text"));
        }
        QVERIFY(holds(fixture_->post(ServiceFixture::loginRequest("ada")).body, "uid=\"fixed\""));
        service().addMessage("ada", newMessage("last", "Text"));
        const std::string reply = fixture_->post(ServiceFixture::loginRequest("ada")).body;
        QVERIFY(!holds(reply, "uid=\"fixed\""));
        QVERIFY(holds(reply, "uid=\"aged\""));
        QVERIFY(holds(reply, "uid=\"last\""));
    }

    void anAgeBecomesADate()
    {
        using namespace std::chrono;
        const auto now = duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
        const std::int64_t date = service().messages("ada").at(1).date.value();
        QVERIFY(date <= now - 2 * 3'600'000);
        QVERIFY(date > now - 3 * 3'600'000);
    }

    void anAccountWithoutMessagesIsToldNone()
    {
        QVERIFY(!holds(fixture_->post(ServiceFixture::loginRequest("bob")).body, "messages"));
        QVERIFY(service().messages("bob").empty());
        QVERIFY(service().messages("nobody").empty());
    }

    void eachSessionIsToldOnce()
    {
        const std::string first = fixture_->logIn("ada");
        QVERIFY(!holds(status(first), "messages"));
        service().addMessage("ada", newMessage("later", "Later"));
        QVERIFY(holds(fixture_->post(ServiceFixture::loginRequest("ada")).body, ">Later<"));
        const std::string reply = status(first);
        QVERIFY(holds(reply, "</status><messages><message uid=\"later\""));
        QVERIFY(!holds(reply, "uid=\"plain\""));
        QVERIFY(!holds(status(first), "messages"));
    }

    void everyReplyOfASessionTells()
    {
        const std::string session = fixture_->logIn("ada");
        service().addMessage("ada", newMessage("one", "One"));
        QVERIFY(holds(fixture_->post(ServiceFixture::bookmarksRequest(session)).body,
                      "</bookmarks><messages><message uid=\"one\""));
        service().addMessage("ada", newMessage("two", "Two"));
        QVERIFY(holds(report(session, {"one"}, {}), "<messages><message uid=\"two\""));
    }

    void aMessageThatIsAddedAgainIsToldAgain()
    {
        const std::string session = fixture_->logIn("ada");
        service().addMessage("ada", newMessage("plain", "Changed"));
        QVERIFY(holds(status(session), ">Changed<"));
        QCOMPARE(uidsOf(service().messages("ada")), std::string("fixed+ aged plain"));
    }

    void anUnknownCustomerGetsNoMessage()
    {
        service().addMessage("nobody", newMessage("a", "A"));
        QVERIFY(service().messages("nobody").empty());
    }

    void reportsAreApplied_data()
    {
        QTest::addColumn<std::vector<std::string>>("read");
        QTest::addColumn<std::vector<std::string>>("deleted");
        QTest::addColumn<std::string>("left");
        using Uids = std::vector<std::string>;
        const auto row = [](const char *name, const Uids &read, const Uids &deleted, const char *left) {
            QTest::newRow(name) << read << deleted << std::string(left);
        };
        row("nothing", {}, {}, "fixed+ aged plain");
        row("read", {"plain"}, {}, "fixed+ aged plain+");
        row("read again", {"fixed", "plain", "plain"}, {}, "fixed+ aged plain+");
        row("deleted", {}, {"aged"}, "fixed+ plain");
        row("both", {"aged", "plain"}, {"aged"}, "fixed+ plain+");
        row("can not be deleted", {}, {"fixed"}, "fixed+ aged plain");
        row("unknown", {"x"}, {"y"}, "fixed+ aged plain");
        row("in capitals", {"PLAIN"}, {"AGED"}, "fixed+ aged plain");
    }

    void reportsAreApplied()
    {
        QFETCH(std::vector<std::string>, read);
        QFETCH(std::vector<std::string>, deleted);
        const std::string session = fixture_->logIn("ada");
        QVERIFY(holds(report(session, read, deleted), "<success"));
        QTEST(uidsOf(service().messages("ada")), "left");
    }

    void whatWasDeletedIsNotToldAgain()
    {
        report(fixture_->logIn("ada"), {"aged"}, {"plain"});
        const std::string reply = fixture_->post(ServiceFixture::loginRequest("ada")).body;
        QVERIFY(!holds(reply, "uid=\"plain\""));
        QVERIFY(holds(reply, "read=\"true\" deletable=\"true\">Aged<"));
    }

    void aReportConcernsOnlyItsAccount()
    {
        service().addMessage("bob", newMessage("plain", "Bob's"));
        report(fixture_->logIn("bob"), {}, {"plain"});
        QCOMPARE(uidsOf(service().messages("ada")), std::string("fixed+ aged plain"));
        QVERIFY(service().messages("bob").empty());
    }

    void aReportTakesASession()
    {
        QVERIFY(holds(report("nonsense", {"plain"}, {"aged"}), "<error code=\"session\">"));
        QCOMPARE(uidsOf(service().messages("ada")), std::string("fixed+ aged plain"));
    }

    void aReportThatIsNotValidChangesNothing()
    {
        const std::string session = fixture_->logIn("ada");
        QVERIFY(holds(report(session, {"plain", " "}, {"aged"}), "<error code=\"request\">"));
        QCOMPARE(uidsOf(service().messages("ada")), std::string("fixed+ aged plain"));
    }

    void aThousandReportsFitOneRequest()
    {
        std::vector<std::string> uids;
        for (int i = 0; i < 1'500; ++i) {
            uids.push_back("message-" + std::to_string(i));
            service().addMessage("bob", newMessage(uids.back(), "Text"));
        }
        const std::string session = fixture_->logIn("bob");
        QVERIFY(holds(report(session, uids, {}), "<success"));
        QVERIFY(service().messages("bob").back().read);
        QVERIFY(holds(report(session, uids, uids), "<success"));
        QVERIFY(service().messages("bob").empty());
    }

    void everyReplyIsValid()
    {
        const corvia::Schema schema(corvia::replySchema());
        corvia::Message odd = newMessage(" odd \" & ", "Text \x01 \xff <b>");
        odd.date = -1;
        odd.url = "no link at all";
        service().addMessage("ada", odd);
        const std::string login = fixture_->post(ServiceFixture::loginRequest("ada")).body;
        QVERIFY(holds(login, "odd"));
        QCOMPARE(schema.firstProblem(corvia::XmlDocument(login)), std::string());
        const std::string session = ServiceFixture::valueIn(login, "session");
        for (const auto &request :
             {ServiceFixture::statusRequest(session), ServiceFixture::bookmarksRequest(session),
              ServiceFixture::messageRequest(session, {"plain"}, {})}) {
            service().addMessage("ada", odd);
            const std::string reply = fixture_->post(request).body;
            QVERIFY(holds(reply, "odd"));
            QCOMPARE(schema.firstProblem(corvia::XmlDocument(reply)), std::string());
        }
    }

    void theDemoAccountHasMessages()
    {
        corvia::CorviaService demo(corvia::demoScenario(), corvia::Options());
        const std::vector<corvia::Message> messages = demo.messages("demo");
        QCOMPARE(messages.size(), std::size_t(4));
        QVERIFY(!messages.front().deletable);
        QVERIFY(messages.front().read);
        QVERIFY(!messages.back().read);
        for (const corvia::Message &message : messages) {
            QVERIFY(holds(message.url.value(), ".corvia.example/"));
        }
    }
};

QTEST_GUILESS_MAIN(TestCorviaMessages)
#include "tst_corviamessages.moc"
