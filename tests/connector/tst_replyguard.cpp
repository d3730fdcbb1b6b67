// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "replyguard.h"
#include "sanitized.h"

#include <QDomElement>
#include <QtTest>

class ReplyGuardTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void whatIsInsideTheLimitsIsBuilt_data();
    void whatIsInsideTheLimitsIsBuilt();
    void whatIsNotIsRefusedWithAReason_data();
    void whatIsNotIsRefusedWithAReason();
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
    limits.elements = 5;
    return limits;
}

void addText(const char *name, const QByteArray &text)
{
    QTest::newRow(name) << text;
}

void addText(const char *name, const QByteArray &text, const char *why)
{
    QTest::newRow(name) << text << QString::fromLatin1(why);
}

} // namespace

void ReplyGuardTest::whatIsInsideTheLimitsIsBuilt_data()
{
    QTest::addColumn<QByteArray>("text");
    addText("one element", "<a/>");
    addText("as deep as may be", "<a><b><c/></b></a>");
    addText("as many attributes as may be", "<a b='1' c='2'/>");
    addText("as many elements as may be", "<a><b/><b/><b/><b/></a>");
    addText("as long as may be", "<a>" + QByteArray(200 - 7, 'x') + "</a>");
    addText("comments and instructions",
            "<?xml version='1.0'?><!-- <a><b><c><d/></c></b></a> --><a><?b c?></a>");
    addText("character data", "<a><![CDATA[<!DOCTYPE a><b><c><d><e>]]></a>");
    addText("white space", "<a>\r\n\t</a>\n");
    addText("byte order mark", "\xEF\xBB\xBF<a/>");
    addText("other letters", "<a>gr\xC3\xBC\xC3\x9F</a>");
}

void ReplyGuardTest::whatIsInsideTheLimitsIsBuilt()
{
    QFETCH(QByteArray, text);
    QDomDocument document;
    QString why;
    QVERIFY2(ReplyGuard::parse(text, smallLimits(), document, why), qPrintable(why));
    QCOMPARE(document.documentElement().tagName(), QStringLiteral("a"));
}

void ReplyGuardTest::whatIsNotIsRefusedWithAReason_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("why");
    addText("too long", "<a>" + QByteArray(200 - 6, 'x') + "</a>", "too many bytes");
    addText("too deep", "<a><b><c><d/></c></b></a>", "too deep");
    addText("too many attributes", "<a b='1' c='2' d='3'/>", "too many attributes");
    addText("too many elements", "<a><b/><b/><b/><b/><b/></a>", "too many elements");
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
    addText("UTF-16", QByteArray("\xFF\xFE<\0a\0/\0>\0", 10), "control characters");
}

void ReplyGuardTest::whatIsNotIsRefusedWithAReason()
{
    QFETCH(QByteArray, text);
    QDomDocument document;
    QString why;
    QVERIFY(!ReplyGuard::parse(text, smallLimits(), document, why));
    QTEST(why, "why");
    QVERIFY(document.documentElement().isNull());
}

void ReplyGuardTest::theTreeIsTheDocuments()
{
    QDomDocument document;
    QString why;
    QVERIFY(ReplyGuard::parse("<reply version='1'><b c='&lt;&#65;'>d</b><e/></reply>", ReplyLimits(),
                              document, why));
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
            QString why;
            const bool built = ReplyGuard::parse(text, ReplyLimits(), document, why);
            QVERIFY(built ? !document.documentElement().isNull() : !why.isEmpty());
            QVERIFY(!ReplyGuard::parse(good.left(at), ReplyLimits(), document, why));
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
    addText("elements", "<a>" + QByteArray("<b/>").repeated(199'999) + "</a>");
    addText("open elements", QByteArray("<a>").repeated(size / 3));
}

void ReplyGuardTest::theLargestRepliesAreReadToTheirEnd()
{
    QFETCH(QByteArray, text);
    QElapsedTimer timer;
    timer.start();
    QDomDocument document;
    QString why;
    const bool built = ReplyGuard::parse(text, ReplyLimits(), document, why);
    QVERIFY(built || !why.isEmpty());
    qInfo("%d bytes: %lld ms", text.size(), static_cast<long long>(timer.elapsed()));
}

QTEST_GUILESS_MAIN(ReplyGuardTest)
#include "tst_replyguard.moc"
