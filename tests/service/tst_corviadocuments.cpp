// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "embedded.h"
#include "schema.h"

#include <QtTest>

/// The schemas and the examples of the description agree.
class TestCorviaDocuments : public QObject {
    Q_OBJECT

private:
    const corvia::Schema requests_{corvia::requestSchema()};
    const corvia::Schema replies_{corvia::replySchema()};

    static QString loginReply(const QByteArray &host, const QByteArray &key, const QByteArray &url)
    {
        return QString::fromUtf8(
            "<reply version='1'><login session='a' auto-search-interval='1'><nntp-servers><server host='" +
            host + "' port='119' ssl='true'/></nntp-servers><links><link key='" + key + "' url='" + url +
            "'/></links></login></reply>");
    }

    static QStringList examples()
    {
        QFile file(QStringLiteral(CORVIA_DOCUMENT));
        file.open(QIODevice::ReadOnly);
        const QString text = QString::fromUtf8(file.readAll());
        QStringList found;
        const QRegularExpression fenced(QStringLiteral("```xml\\n(.*?)```"),
                                        QRegularExpression::DotMatchesEverythingOption);
        QRegularExpressionMatchIterator matches = fenced.globalMatch(text);
        while (matches.hasNext()) {
            found << matches.next().captured(1);
        }
        return found;
    }

private Q_SLOTS:
    void everyExampleIsValid()
    {
        int requests = 0;
        int replies = 0;
        for (const QString &example : examples()) {
            const corvia::XmlDocument document(example.toStdString());
            QVERIFY2(bool(document), qPrintable(example));
            const std::string root = corvia::XmlDocument::nameOf(document.root());
            if (root == "request") {
                QCOMPARE(requests_.firstProblem(document), std::string());
                ++requests;
            } else if (root == "reply") {
                QCOMPARE(replies_.firstProblem(document), std::string());
                ++replies;
            }
        }
        QVERIFY(requests >= 3);
        QVERIFY(replies >= 6);
    }

    void messagesMayFollowAnyReply_data()
    {
        QTest::addColumn<QString>("reply");
        QTest::newRow("success") << "<success/>";
        QTest::newRow("bookmarks") << "<bookmarks/>";
        QTest::newRow("status") << "<status/>";
        QTest::newRow("error") << "<error code='unavailable'>x</error>";
    }

    void messagesMayFollowAnyReply()
    {
        QFETCH(QString, reply);
        for (const char *messages :
             {"<messages/>", "<messages><message uid='a'/></messages>",
              "<messages><message uid='a' date='-1' url='javascript:x' read='true' deletable='false'>"
              "&lt;b&gt;</message><message uid=' b '/></messages>"}) {
            const corvia::XmlDocument document("<reply version='1'>" + reply.toStdString() + messages +
                                               "</reply>");
            QCOMPARE(replies_.firstProblem(document), std::string());
        }
    }

    void aRequestThatIsNotValidIsRefused_data()
    {
        QTest::addColumn<QByteArray>("message");
        QTest::addColumn<bool>("valid");
        const QByteArray uid = "<message uid='a'/>";
        QTest::newRow("nothing done") << QByteArray() << true;
        QTest::newRow("read") << "<read>" + uid + "</read>" << true;
        QTest::newRow("deleted") << "<deleted>" + uid + uid + "</deleted>" << true;
        QTest::newRow("both") << "<read>" + uid + "</read><deleted>" + uid + "</deleted>" << true;
        QTest::newRow("the other way round")
            << "<deleted>" + uid + "</deleted><read>" + uid + "</read>" << false;
        QTest::newRow("an empty list") << QByteArray("<read/>") << false;
        QTest::newRow("twice") << "<read>" + uid + "</read><read>" + uid + "</read>" << false;
        QTest::newRow("no uid") << QByteArray("<read><message/></read>") << false;
        QTest::newRow("a blank uid") << QByteArray("<read><message uid=' '/></read>") << false;
        QTest::newRow("a long uid") << "<read><message uid='" + QByteArray(256, 'u') + "'/></read>" << false;
        QTest::newRow("outside") << uid << false;
    }

    void aRequestThatIsNotValidIsRefused()
    {
        QFETCH(QByteArray, message);
        QFETCH(bool, valid);
        const corvia::XmlDocument document("<request version='1' session='s'><message>" +
                                           message.toStdString() + "</message></request>");
        QVERIFY(bool(document));
        QCOMPARE(requests_.firstProblem(document).empty(), valid);
    }

    void namesAsLongAsMayBeAreValid()
    {
        const QString name(512, QLatin1Char('a'));
        const QStringList replies = {
            QStringLiteral("<reply version='1'><bookmarks><folder><name>%1</name><newsgroup>%1</newsgroup>"
                           "</folder></bookmarks></reply>")
                .arg(name),
            QStringLiteral("<reply version='1'><status><plan name='%1'/></status></reply>").arg(name),
            loginReply(QByteArray(253, 'a'), QByteArray(255, 'a'),
                       "https://a.example/" + QByteArray(2'030, 'a'))};
        for (const QString &reply : replies) {
            QCOMPARE(replies_.firstProblem(corvia::XmlDocument(reply.toStdString())), std::string());
        }
    }

    void aReplyThatIsNotValidIsRefused_data()
    {
        QTest::addColumn<QString>("reply");
        QTest::newRow("nothing") << "<reply version='1'/>";
        QTest::newRow("messages first") << "<reply version='1'><messages/><success/></reply>";
        QTest::newRow("two elements") << "<reply version='1'><success/><success/></reply>";
        QTest::newRow("unknown code") << "<reply version='1'><error code='odd'>x</error></reply>";
        QTest::newRow("no number") << "<reply version='1'><status next-update-millis='soon'/></reply>";
        QTest::newRow("negative") << "<reply version='1'><status><nntp mtd-bytes='-1'/></status></reply>";
        QTest::newRow("no flag") << "<reply version='1'><status supported='yes'/></reply>";
        QTest::newRow("nameless folder") << "<reply version='1'><bookmarks><folder/></bookmarks></reply>";
        QTest::newRow("blank folder")
            << "<reply version='1'><bookmarks><folder><name> </name></folder></bookmarks></reply>";
        QTest::newRow("two names") << "<reply version='1'><bookmarks><folder><name>a</name><name>b</name>"
                                      "</folder></bookmarks></reply>";
        const auto bookmarks = [](const QString &folder, const QString &newsgroup) {
            return QStringLiteral(
                       "<reply version='1'><bookmarks><folder><name>%1</name><newsgroup>%2</newsgroup>"
                       "</folder></bookmarks></reply>")
                .arg(folder, newsgroup);
        };
        const QString tooLong(513, QLatin1Char('a'));
        QTest::newRow("too long a folder") << bookmarks(tooLong, QStringLiteral("a.b"));
        QTest::newRow("too long a newsgroup") << bookmarks(QStringLiteral("a"), tooLong);
        QTest::newRow("too long a plan")
            << QStringLiteral("<reply version='1'><status><plan name='%1'/></status></reply>").arg(tooLong);
        QTest::newRow("too long a host") << loginReply(QByteArray(254, 'a'), "home", "https://a.example/");
        QTest::newRow("too long a key") << loginReply("a", QByteArray(256, 'a'), "https://a.example/");
        QTest::newRow("too long an address")
            << loginReply("a", "home", "https://a.example/" + QByteArray(2'031, 'a'));
        QTest::newRow("empty newsgroup")
            << "<reply "
               "version='1'><bookmarks><folder><name>a</name><newsgroup/></folder></bookmarks></reply>";
        QTest::newRow("newsgroup in no folder")
            << "<reply version='1'><bookmarks><newsgroup>a.b</newsgroup></bookmarks></reply>";
        QTest::newRow("another version") << "<reply version='2'><success/></reply>";
        const auto message = [](const char *attributes) {
            return QStringLiteral("<reply version='1'><success/><messages><message %1/></messages></reply>")
                .arg(QLatin1String(attributes));
        };
        QTest::newRow("message without a uid") << message("");
        QTest::newRow("message with a blank uid") << message("uid='  '");
        QTest::newRow("message of a day") << message("uid='a' date='2026-01-01'");
        QTest::newRow("message half read") << message("uid='a' read='half'");
        QTest::newRow("text among messages") << "<reply version='1'><success/><messages>x</messages></reply>";
    }

    void aReplyThatIsNotValidIsRefused()
    {
        QFETCH(QString, reply);
        const corvia::XmlDocument document(reply.toStdString());
        QVERIFY(bool(document));
        QVERIFY(!replies_.firstProblem(document).empty());
    }
};

QTEST_GUILESS_MAIN(TestCorviaDocuments)
#include "tst_corviadocuments.moc"
