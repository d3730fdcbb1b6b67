// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "embedded.h"
#include "scenario.h"
#include "schema.h"
#include "servicefixture.h"

#include <QtTest>
#include <set>

/// Groups of files: in a scenario, on the wire and in the schemas.
class TestCorviaDetails : public QObject {
    Q_OBJECT

private:
    const corvia::Schema requests_{corvia::requestSchema()};
    const corvia::Schema replies_{corvia::replySchema()};

    static std::string request(const std::string &session, const std::string &id)
    {
        return "<request version=\"1\" session=\"" + session + "\"><details filegroup=\"" + id +
               "\"/></request>";
    }

    static QString letters(int count) { return QString(count, QLatin1Char('x')); }

    static std::string scenario()
    {
        return "<file-group id=\"moon.1_a-b\" title=\"The &lt;moon&gt;\">"
               "<file subject=\"&quot;moon&quot; (1/2)\" poster=\"Ada &lt;ada@x.example&gt;\">"
               "<groups><group>misc.dots</group><group>misc.moon</group></groups>"
               "<segments><segment bytes=\"700\">one@x.example</segment><segment "
               "bytes=\"22\">two@x.example</segment></segments>"
               "</file>"
               "<file subject=\"b\" poster=\"c\" hours-ago=\"2\"/>"
               "</file-group>"
               "<file-group id=\"empty\"/>";
    }

private Q_SLOTS:
    void aGroupIsToldWithAllThatIsInIt()
    {
        ServiceFixture fixture(corvia::Options(), scenario());
        QCOMPARE(fixture.problem(), std::string());
        const std::string body = fixture.post(request(fixture.logIn("ada"), "moon.1_a-b")).body;
        const std::string expected =
            "<details><nzb><head><meta type=\"title\">The &lt;moon&gt;</meta></head>"
            "<file subject=\"&quot;moon&quot; (1/2)\" poster=\"Ada &lt;ada@x.example&gt;\">"
            "<groups><group>misc.dots</group><group>misc.moon</group></groups>"
            "<segments><segment bytes=\"700\" number=\"1\">one@x.example</segment>"
            "<segment bytes=\"22\" number=\"2\">two@x.example</segment></segments></file>"
            "<file subject=\"b\" poster=\"c\" date=\"";
        QVERIFY2(body.find(expected) != std::string::npos, body.c_str());
        const qint64 age =
            QDateTime::currentSecsSinceEpoch() - std::stoll(ServiceFixture::valueIn(body, "date"));
        QVERIFY(age >= 7200 && age < 8200);
        QCOMPARE(replies_.firstProblem(corvia::XmlDocument(body)), std::string());
    }

    void aGroupMayBeEmpty()
    {
        ServiceFixture fixture(corvia::Options(), scenario());
        const std::string body = fixture.post(request(fixture.logIn("ada"), "empty")).body;
        QVERIFY(body.find("<details><nzb/></details>") != std::string::npos);
        QCOMPARE(replies_.firstProblem(corvia::XmlDocument(body)), std::string());
    }

    void anUnknownGroupIsRefused()
    {
        ServiceFixture fixture(corvia::Options(), scenario());
        const std::string body = fixture.post(request(fixture.logIn("ada"), "moon")).body;
        QVERIFY(body.find("<error code=\"details\">The service does not know this group of files.</error>") !=
                std::string::npos);
        QCOMPARE(replies_.firstProblem(corvia::XmlDocument(body)), std::string());
    }

    void detailsTakeASession()
    {
        ServiceFixture fixture(corvia::Options(), scenario());
        const std::string body = fixture.post(request("nonsense", "empty")).body;
        QVERIFY(body.find("<error code=\"session\">") != std::string::npos);
    }

    void theDemoAccountHasAGroupToShow()
    {
        corvia::Scenario demo;
        std::string why;
        QVERIFY2(corvia::readScenario(corvia::demoScenario(), &demo, &why), why.c_str());
        QCOMPARE(demo.fileGroups.size(), std::size_t(1));
        std::set<std::string> articles;
        for (const corvia::Newsgroup &group : demo.groups) {
            for (const corvia::Article &article : group.articles) {
                articles.insert(article.id);
            }
        }
        for (const corvia::PostedFile &file : demo.fileGroups[0].files) {
            QVERIFY(!file.segments.empty());
            for (const corvia::FileSegment &segment : file.segments) {
                QVERIFY2(articles.count("<" + segment.id + ">") == 1, segment.id.c_str());
            }
        }
    }

    void aRequestThatIsNotValidIsRefused_data()
    {
        QTest::addColumn<QString>("details");
        QTest::addColumn<bool>("isValid");
        QTest::newRow("good") << "<details filegroup='aZ0.-_'/>" << true;
        QTest::newRow("the longest") << QStringLiteral("<details filegroup='%1'/>").arg(letters(200)) << true;
        QTest::newRow("too long") << QStringLiteral("<details filegroup='%1'/>").arg(letters(201)) << false;
        QTest::newRow("empty") << "<details filegroup=''/>" << false;
        QTest::newRow("none") << "<details/>" << false;
        QTest::newRow("odd letter") << "<details filegroup='a/b'/>" << false;
        QTest::newRow("content") << "<details filegroup='a'><nzb/></details>" << false;
    }

    void aRequestThatIsNotValidIsRefused()
    {
        QFETCH(QString, details);
        QFETCH(bool, isValid);
        const corvia::XmlDocument document("<request version='1' session='x'>" + details.toStdString() +
                                           "</request>");
        QCOMPARE(requests_.firstProblem(document).empty(), isValid);
    }

    void aReplyThatIsNotValidIsRefused_data()
    {
        QTest::addColumn<QString>("nzb");
        QTest::newRow("nothing") << "";
        QTest::newRow("two") << "<nzb/><nzb/>";
        QTest::newRow("no subject") << "<nzb><file poster=''><groups/><segments/></file></nzb>";
        QTest::newRow("no groups") << "<nzb><file subject='' poster=''><segments/></file></nzb>";
        QTest::newRow("no size") << "<nzb><file subject='' poster=''><groups/><segments><segment number='1'/>"
                                    "</segments></file></nzb>";
        QTest::newRow("a negative size")
            << "<nzb><file subject='' poster=''><groups/><segments><segment number='1' bytes='-1'/>"
               "</segments></file></nzb>";
        QTest::newRow("a namespace") << "<nzb xmlns='urn:x'/>";
    }

    void aReplyThatIsNotValidIsRefused()
    {
        QFETCH(QString, nzb);
        const corvia::XmlDocument document("<reply version='1'><details>" + nzb.toStdString() +
                                           "</details></reply>");
        QVERIFY(bool(document));
        QVERIFY(!replies_.firstProblem(document).empty());
    }

    void aBadScenarioIsToldWithItsLine_data()
    {
        QTest::addColumn<QString>("inside");
        QTest::addColumn<QString>("problem");
        const char *const badId =
            "the id of a file group has 1 to 200 letters, digits, dots, hyphens and underscores";
        QTest::newRow("no id") << "<file-group/>"
                               << "<file-group> needs the attribute \"id\"";
        QTest::newRow("empty id") << "<file-group id=''/>" << badId;
        QTest::newRow("odd id") << "<file-group id='a b'/>" << badId;
        QTest::newRow("long id") << QStringLiteral("<file-group id='%1'/>").arg(letters(201)) << badId;
        QTest::newRow("odd attribute") << "<file-group id='a' b='c'/>"
                                       << "<file-group> has no attribute \"b\"";
        QTest::newRow("two") << "<file-group id='a'/><file-group id='a'/>"
                             << "there are two file groups \"a\"";
        QTest::newRow("odd element") << "<file-group id='a'><x/></file-group>"
                                     << "<x> has no place here";
        QTest::newRow("no subject") << "<file-group id='a'><file poster='b'/></file-group>"
                                    << "<file> needs the attribute \"subject\"";
        QTest::newRow("odd element in a file")
            << "<file-group id='a'><file subject='s' poster='p'><x/></file></file-group>"
            << "<x> has no place here";
        QTest::newRow("no size") << "<file-group id='a'><file subject='s' poster='p'><segments><segment/>"
                                    "</segments></file></file-group>"
                                 << "<segment> needs the attribute \"bytes\"";
        QTest::newRow("no group") << "<file-group id='a'><file subject='s' poster='p'><groups><x/></groups>"
                                     "</file></file-group>"
                                  << "<x> has no place here";
    }

    void aBadScenarioIsToldWithItsLine()
    {
        QFETCH(QString, inside);
        QFETCH(QString, problem);
        corvia::Scenario scenario;
        std::string why;
        const std::string xml = "<scenario version='1'>\n\n" + inside.toStdString() + "</scenario>";
        QVERIFY(!corvia::readScenario(xml, &scenario, &why));
        QCOMPARE(why, "Line 3 of the scenario: " + problem.toStdString() + ".");
    }
};

QTEST_GUILESS_MAIN(TestCorviaDetails)
#include "tst_corviadetails.moc"
