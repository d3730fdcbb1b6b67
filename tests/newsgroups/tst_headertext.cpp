// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "headertext.h"

#include <QtTest>

class TestHeaderText : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aFieldIsReadAsAPersonReadsIt_data();
    void aFieldIsReadAsAPersonReadsIt();
    void theNameOfThePosterIsShown_data();
    void theNameOfThePosterIsShown();
    void aLongFieldIsCutOff_data();
    void aLongFieldIsCutOff();
};

void TestHeaderText::aFieldIsReadAsAPersonReadsIt_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << QByteArray("Hello") << "Hello";
    QTest::newRow("empty") << QByteArray() << QString();
    QTest::newRow("Q") << QByteArray("=?UTF-8?Q?Gr=C3=BC=C3=9Fe_an?= alle") << "Grüße an alle";
    QTest::newRow("B") << QByteArray("=?utf-8?b?R3LDvMOfZQ==?=") << "Grüße";
    QTest::newRow("Latin-1") << QByteArray("=?iso-8859-1?q?=fcber?=") << "über";
    QTest::newRow("Japanese") << QByteArray("=?ISO-2022-JP?B?GyRCRnxLXBsoQg==?=") << "日本";
    QTest::newRow("a language") << QByteArray("=?us-ascii*en?Q?hi?=") << "hi";
    QTest::newRow("two words, the blank between them is none")
        << QByteArray("=?utf-8?q?a?= =?utf-8?q?b?=") << "ab";
    QTest::newRow("two words without a blank") << QByteArray("=?utf-8?q?a?==?utf-8?q?b?=") << "ab";
    QTest::newRow("two character sets") << QByteArray("=?utf-8?q?a?=\t=?iso-8859-1?q?=fc?=") << "aü";
    QTest::newRow("a character in two words") << QByteArray("=?utf-8?q?=C3?= =?utf-8?q?=BC?=") << "ü";
    QTest::newRow("text between words") << QByteArray("x =?utf-8?q?a?= y =?utf-8?q?b?= z") << "x a y b z";
    QTest::newRow("unknown character set") << QByteArray("=?klingon?q?a?=") << "=?klingon?q?a?=";
    QTest::newRow("unknown encoding") << QByteArray("=?utf-8?x?a?=") << "=?utf-8?x?a?=";
    QTest::newRow("wrong Q") << QByteArray("=?utf-8?q?=G1?=") << "=?utf-8?q?=G1?=";
    QTest::newRow("cut off Q") << QByteArray("=?utf-8?q?a=C?=") << "=?utf-8?q?a=C?=";
    QTest::newRow("wrong B") << QByteArray("=?utf-8?b?!!?=") << "=?utf-8?b?!!?=";
    QTest::newRow("no end") << QByteArray("=?utf-8?q?a") << "=?utf-8?q?a";
    QTest::newRow("nothing but a beginning") << QByteArray("=?") << "=?";
    QTest::newRow("beginnings") << QByteArray("=?=?=?=?") << "=?=?=?=?";
    QTest::newRow("a wrong word before a right one") << QByteArray("=?a =?utf-8?q?b?=") << "=?a b";
    QTest::newRow("UTF-8 as it is") << QByteArray("Gr\xC3\xBC\xC3\x9F") << "Grüß";
    QTest::newRow("Latin-1 as it is") << QByteArray("Gr\xFC\xDF") << "Grüß";
    QTest::newRow("control characters") << QByteArray("a\0b\x07\x1B[31mc", 11) << "a b [31mc";
    QTest::newRow("encoded control characters") << QByteArray("=?utf-8?q?a=0A=00b?=") << "a b";
    QTest::newRow("direction turned around") << QByteArray("a\xE2\x80\xAE"
                                                           "cba\xE2\x81\xA6")
                                             << "a cba";
    QTest::newRow("from right to left") << QByteArray("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D") << "שלום";
    QTest::newRow("markup") << QByteArray("<img src=x>") << "<img src=x>";
}

void TestHeaderText::aFieldIsReadAsAPersonReadsIt()
{
    QFETCH(QByteArray, field);
    QTEST(headertext::decode(field), "text");
}

void TestHeaderText::theNameOfThePosterIsShown_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QString>("poster");
    QTest::newRow("name and address") << QByteArray("Ines Aubry <ines@aubry.example>") << "Ines Aubry";
    QTest::newRow("quoted") << QByteArray("\"Aubry, Ines\" <ines@aubry.example>") << "Aubry, Ines";
    QTest::newRow("in brackets") << QByteArray("ines@aubry.example (Ines Aubry)") << "Ines Aubry";
    QTest::newRow("encoded") << QByteArray("=?utf-8?q?In=C3=A8s?= <ines@aubry.example>") << "Inès";
    QTest::newRow("address alone") << QByteArray("ines@aubry.example") << "ines@aubry.example";
    QTest::newRow("address in angle brackets") << QByteArray("<ines@aubry.example>") << "ines@aubry.example";
    QTest::newRow("empty name") << QByteArray("\"\" <ines@aubry.example>") << "ines@aubry.example";
    QTest::newRow("empty brackets") << QByteArray("ines@aubry.example ()") << "ines@aubry.example ()";
    QTest::newRow("open angle bracket") << QByteArray("Ines <ines@aubry") << "Ines";
    QTest::newRow("nothing but an angle bracket") << QByteArray("<") << QString();
    QTest::newRow("open bracket") << QByteArray("ines (Ines") << "Ines";
    QTest::newRow("brackets the wrong way round") << QByteArray(") ines (") << ") ines (";
    QTest::newRow("empty") << QByteArray() << QString();
}

void TestHeaderText::theNameOfThePosterIsShown()
{
    QFETCH(QByteArray, from);
    QTEST(headertext::poster(from), "poster");
}

void TestHeaderText::aLongFieldIsCutOff_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::newRow("letters") << QByteArray(100'000, 'x');
    QTest::newRow("characters outside the basic plane") << QByteArray("\xF0\x9F\x98\x80").repeated(25'000);
    QTest::newRow("beginnings of words") << QByteArray("=?").repeated(50'000);
    QTest::newRow("encoded words") << QByteArray("=?utf-8?q?aaaaaaaaaaaa?= ").repeated(5000);
}

void TestHeaderText::aLongFieldIsCutOff()
{
    QFETCH(QByteArray, field);
    const QString text = headertext::decode(field);
    QVERIFY(text.size() <= headertext::longest);
    QVERIFY(text.size() >= headertext::longest - 1);
    QVERIFY(text.endsWith(QChar(0x2026)));
    QVERIFY(!text.at(text.size() - 2).isHighSurrogate());
}

QTEST_GUILESS_MAIN(TestHeaderText)
#include "tst_headertext.moc"
