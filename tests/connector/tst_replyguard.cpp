// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "replyguard.h"
#include "sanitized.h"

#include <QDomElement>
#include <QtTest>

using Kind = RequestFailure::Kind;

Q_DECLARE_METATYPE(RequestFailure::Kind)

class ReplyGuardTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void whatIsInsideTheLimitsIsBuilt_data();
    void whatIsInsideTheLimitsIsBuilt();
    void whatIsNotIsRefusedWithAReason_data();
    void whatIsNotIsRefusedWithAReason();
    void whatTheServiceSendsAtMostIsBuilt_data();
    void whatTheServiceSendsAtMostIsBuilt();
    void theTreeIsTheDocuments();
    void everyOneOfManyBytesMayBeBroken();
    void theLargestRepliesAreReadToTheirEnd_data();
    void theLargestRepliesAreReadToTheirEnd();
};

namespace {

ReplyLimits smallLimits()
{
    ReplyLimits limits;
    limits.bytes = 200;
    limits.depth = 3;
    limits.attributes = 2;
    limits.nodes = 5;
    limits.newsgroups = 2;
    limits.nameLength = 3;
    return limits;
}

void addText(const char *name, const QByteArray &text)
{
    QTest::newRow(name) << text;
}

void addText(const char *name, const QByteArray &text, const char *why, Kind kind = Kind::BadReply)
{
    QTest::newRow(name) << text << QString::fromLatin1(why) << kind;
}

} // namespace

void ReplyGuardTest::whatIsInsideTheLimitsIsBuilt_data()
{
    QTest::addColumn<QByteArray>("text");
    addText("one element", "<a/>");
    addText("as deep as may be", "<a><b><c/></b></a>");
    addText("as many attributes as may be", "<a b='1' c='2'/>");
    addText("as many elements as may be", "<a><b/><b/><b/><b/></a>");
    addText("as many pieces of text as may be", "<a>1<b/>2<b/> </a>");
    addText("as many character data sections as may be",
            "<a><![CDATA[]]><![CDATA[]]><![CDATA[]]><![CDATA[]]></a>");
    addText("as many newsgroups as may be", "<a><newsgroup/><b><newsgroup/></b></a>");
    addText("a newsgroup as long as may be", "<a><newsgroup>a.b</newsgroup></a>");
    addText("a name as long as may be", "<a><name>a<b>bc</b></name></a>");
    addText("a plan as long as may be", "<a><plan name='abc'/></a>");
    addText("any other text", "<a><b name='abcd'>abcd</b>abcd</a>");
    addText("the end of a name", "<a><name>abc</name>abcd</a>");
    addText("as long as may be", "<a>" + QByteArray(200 - 7, 'x') + "</a>");
    addText("comments and instructions",
            "<?xml version='1.0'?><!-- <a><b><c><d/></c></b></a> --><a><?b c?></a>");
    addText("character data", "<a><![CDATA[<!DOCTYPE a><b><c><d><e>]]></a>");
    addText("white space", "<a>\r\n\t</a>\n");
    addText("byte order mark", "\xEF\xBB\xBF<a/>");
    addText("other letters", "<a>gr\xC3\xBC\xC3\x9F</a>");
    addText("references", "<a b='&#9;&#10;&#13;&#xFFFD;'>&#x9;&#xA;&#xD;&#x20;&#xD7FF;&#xE000;</a>");
    addText("a pair of surrogates", "<a>&#xD83D;&#xDC4B;</a>");
}

void ReplyGuardTest::whatIsInsideTheLimitsIsBuilt()
{
    QFETCH(QByteArray, text);
    QDomDocument document;
    const RequestFailure failure = ReplyGuard::parse(text, smallLimits(), document);
    QVERIFY2(failure.isNull(), qPrintable(failure.detail()));
    QCOMPARE(document.documentElement().tagName(), QStringLiteral("a"));
}

void ReplyGuardTest::whatIsNotIsRefusedWithAReason_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("why");
    QTest::addColumn<RequestFailure::Kind>("kind");
    addText("too long", "<a>" + QByteArray(200 - 6, 'x') + "</a>", "too many bytes", Kind::TooLarge);
    addText("too deep", "<a><b><c><d/></c></b></a>", "too deep");
    addText("too many attributes", "<a b='1' c='2' d='3'/>", "too many attributes");
    addText("too many elements", "<a><b/><b/><b/><b/><b/></a>", "too many nodes", Kind::TooLarge);
    addText("too many pieces of text", "<a>1<b/>2<b/>3</a>", "too many nodes", Kind::TooLarge);
    addText("too many attributes in sum", "<a b='' c=''><d b='' c=''/></a>", "too many nodes",
            Kind::TooLarge);
    addText("too many comments", "<a><!----><!----><!----><!----><!----></a>", "too many nodes",
            Kind::TooLarge);
    addText("too many instructions", "<a><?b?><?b?><?b?><?b?><?b?></a>", "too many nodes", Kind::TooLarge);
    addText("too many character data sections",
            "<a><![CDATA[]]><![CDATA[]]><![CDATA[]]><![CDATA[]]><![CDATA[]]></a>", "too many nodes",
            Kind::TooLarge);
    addText("too many newsgroups", "<a><newsgroup/><b><newsgroup/></b><newsgroup/></a>",
            "too many newsgroups", Kind::TooLarge);
    addText("too long a newsgroup", "<a><newsgroup>a.bc</newsgroup></a>", "a name that is too long",
            Kind::TooLarge);
    addText("too long a newsgroup in pieces", "<a><newsgroup>a<b>.bc</b></newsgroup></a>",
            "a name that is too long", Kind::TooLarge);
    addText("too long a name", "<a><name>a&amp;bc</name></a>", "a name that is too long", Kind::TooLarge);
    addText("too long a plan", "<a><plan name='abcd'/></a>", "a name that is too long", Kind::TooLarge);
    addText("DOCTYPE", "<!DOCTYPE a><a/>", "a DOCTYPE");
    addText("DOCTYPE after a comment", "<!-- --><!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>", "a DOCTYPE");
    addText("DOCTYPE in small letters", "<!doctype a><a/>", "not well-formed");
    addText("DOCTYPE inside", "<a><!DOCTYPE a></a>", "not well-formed");
    addText("DOCTYPE behind", "<a/><!DOCTYPE a>", "not well-formed");
    addText("nothing", "", "not well-formed");
    addText("no end", "<a>", "not well-formed");
    addText("crossed", "<a><b></a></b>", "not well-formed");
    addText("a zero byte", QByteArray("<a>\0</a>", 8), "control characters");
    addText("a control character", "<a>\x1B</a>", "control characters");
    for (const char *reference : {"0", "7", "x1F", "xD800", "xDFFF", "xDC4B;&#xD83D", "xFFFE", "xFFFF"}) {
        const QByteArray written = QByteArray("&#") + reference + ';';
        addText((written + " in a text").constData(), "<a>b" + written + "</a>", "control characters");
        addText((written + " in an attribute").constData(), "<a b='b" + written + "c'/>",
                "control characters");
    }
    addText("an unknown entity", "<a>&b;</a>", "not well-formed");
    addText("an unknown entity in an attribute", "<a b='&b;'/>", "not well-formed");
    addText("UTF-16", QByteArray("\xFF\xFE<\0a\0/\0>\0", 10), "control characters");
}

void ReplyGuardTest::whatIsNotIsRefusedWithAReason()
{
    QFETCH(QByteArray, text);
    QDomDocument document;
    const RequestFailure failure = ReplyGuard::parse(text, smallLimits(), document);
    QTEST(failure.detail(), "why");
    QTEST(failure.kind(), "kind");
    QVERIFY(document.documentElement().isNull());
}

void ReplyGuardTest::whatTheServiceSendsAtMostIsBuilt_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("fits");
    const auto newsgroups = [](int count, int length) {
        const QByteArray newsgroup = "<newsgroup>" + QByteArray(length, 'a') + "</newsgroup>";
        return "<a><folder><name>b</name>" + newsgroup.repeated(count) + "</folder></a>";
    };
    QTest::newRow("20,000 newsgroups") << newsgroups(20'000, 100) << true;
    QTest::newRow("20,001 newsgroups") << newsgroups(20'001, 100) << false;
    QTest::newRow("names of 512 characters") << newsgroups(2, 512) << true;
    QTest::newRow("names of 513 characters") << newsgroups(2, 513) << false;
    const QByteArray message = "<message uid='a' date='1' url='b' read='false' deletable='true'>c</message>";
    QTest::newRow("10,000 messages") << "<a>" + message.repeated(10'000) + "</a>" << true;
    const QByteArray segment = "<segment bytes='1' number='1'>a@b</segment>";
    QTest::newRow("24,000 segments") << "<a>" + segment.repeated(24'000) + "</a>" << true;
    QTest::newRow("100,000 nodes") << "<a>" + QByteArray("<b/>").repeated(99'999) + "</a>" << true;
    QTest::newRow("100,001 nodes") << "<a>" + QByteArray("<b/>").repeated(100'000) + "</a>" << false;
}

void ReplyGuardTest::whatTheServiceSendsAtMostIsBuilt()
{
    QFETCH(QByteArray, text);
    QDomDocument document;
    QTEST(ReplyGuard::parse(text, ReplyLimits(), document).isNull(), "fits");
}

void ReplyGuardTest::theTreeIsTheDocuments()
{
    QDomDocument document;
    QVERIFY(
        ReplyGuard::parse("<reply version='1'><b c='&lt;&#65;'>d</b><e/></reply>", ReplyLimits(), document)
            .isNull());
    const QDomElement first = document.documentElement().firstChildElement();
    QCOMPARE(first.attribute(QStringLiteral("c")), QStringLiteral("<A"));
    QCOMPARE(first.text(), QStringLiteral("d"));
    QCOMPARE(first.nextSiblingElement().tagName(), QStringLiteral("e"));
}

// No crash, no hang, and either a tree or a reason.
void ReplyGuardTest::everyOneOfManyBytesMayBeBroken()
{
    const QByteArray good =
        "<?xml version='1.0' encoding='UTF-8'?><reply version='1'><!-- c --><a b=\"&lt;1\">&#x41;"
        "<![CDATA[x]]></a><?p i?></reply>";
    for (int at = 0; at < good.size(); ++at) {
        for (const char byte : {'<', '>', '&', '"', '!', '\0', ' ', '\xFF', ']'}) {
            QByteArray text = good;
            text[at] = byte;
            QDomDocument document;
            const RequestFailure failure = ReplyGuard::parse(text, ReplyLimits(), document);
            QVERIFY(failure.isNull() ? !document.documentElement().isNull() : !failure.detail().isEmpty());
            QVERIFY(!ReplyGuard::parse(good.left(at), ReplyLimits(), document).isNull());
        }
    }
}

void ReplyGuardTest::theLargestRepliesAreReadToTheirEnd_data()
{
    const int size = (ReplyLimits().bytes - 100) / sanitizedShare;
    QTest::addColumn<QByteArray>("text");
    addText("attributes", "<a" + QByteArray(" b=''").repeated(size / 5) + "/>");
    addText("text", "<a>" + QByteArray(size, 'x') + "</a>");
    addText("a name", "<" + QByteArray(size, 'x') + "/>");
    addText("a value", "<a b='" + QByteArray(size, 'x') + "'/>");
    addText("entities", "<a>" + QByteArray("&lt;").repeated(size / 4) + "</a>");
    addText("unknown entities", "<a>" + QByteArray("&b;").repeated(size / 3) + "</a>");
    addText("comments", "<a>" + QByteArray("<!---->").repeated(size / 7) + "</a>");
    addText("instructions", "<a>" + QByteArray("<?b?>").repeated(size / 5) + "</a>");
    addText("character data", "<a>" + QByteArray("<![CDATA[]]>").repeated(size / 12) + "</a>");
    addText("elements", "<a>" + QByteArray("<b/>").repeated(99'999) + "</a>");
    addText("open elements", QByteArray("<a>").repeated(size / 3));
}

void ReplyGuardTest::theLargestRepliesAreReadToTheirEnd()
{
    QFETCH(QByteArray, text);
    QElapsedTimer timer;
    timer.start();
    QDomDocument document;
    const RequestFailure failure = ReplyGuard::parse(text, ReplyLimits(), document);
    QVERIFY(failure.isNull() || !failure.detail().isEmpty());
    qInfo("%d bytes: %lld ms", text.size(), static_cast<long long>(timer.elapsed()));
}

QTEST_GUILESS_MAIN(ReplyGuardTest)
#include "tst_replyguard.moc"
