// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "nntpreply.h"

#include <QtTest>

class tst_NntpReply : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aReplyHasACodeAndAText_data();
    void aReplyHasACodeAndAText();
    void aSecretIsNeverShown_data();
    void aSecretIsNeverShown();
    void noReplyIsEmpty();
};

void tst_NntpReply::aReplyHasACodeAndAText_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    const auto row = [](const QByteArray &line, int code, const QString &text) {
        QTest::addRow("%s", line.left(20).toPercentEncoding(" ").constData()) << line << code << text;
    };
    const QString odd(QChar::ReplacementCharacter);
    row("", 0, QString());
    row("281", 281, QStringLiteral("281"));
    row("281 ok", 281, QStringLiteral("281 ok"));
    row("281-ok", 0, QStringLiteral("281-ok"));
    row("28 ok", 0, QStringLiteral("28 ok"));
    row("2811", 0, QStringLiteral("2811"));
    row(" 281 ok", 0, QStringLiteral(" 281 ok"));
    row("+81 ok", 0, QStringLiteral("+81 ok"));
    row("281 <b>bold</b>", 281, QStringLiteral("281 <b>bold</b>"));
    row("481 a\tb\rc\x7F", 481,
        QStringLiteral("481 a") + odd + QLatin1Char('b') + odd + QLatin1Char('c') + odd);
    row("481 " + QString(QChar(0x202E)).toUtf8() + " back", 481,
        QStringLiteral("481 ") + odd + QStringLiteral(" back"));
    row("481 \xC3\xA9", 481, QStringLiteral("481 ") + QChar(0x00E9));
    row("481 " + QByteArray(508, 'x'), 481, QStringLiteral("481 ") + QString(508, QLatin1Char('x')));
    row("482 " + QByteArray(509, 'x'), 482, QStringLiteral("482 ") + QString(508, QLatin1Char('x')));
    row("483 " + QByteArray(507, 'x') + "\xF0\x9F\x98\x80", 483,
        QStringLiteral("483 ") + QString(507, QLatin1Char('x')));
}

void tst_NntpReply::aReplyHasACodeAndAText()
{
    QFETCH(QByteArray, line);
    QFETCH(int, code);
    QFETCH(QString, text);
    const NntpReply reply(line);
    QCOMPARE(reply.code(), code);
    QCOMPARE(reply.text(), text);
}

void tst_NntpReply::aSecretIsNeverShown_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("secret");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    QTest::newRow("alone") << QByteArray("sesame") << QByteArray("sesame") << 0 << QStringLiteral("***");
    QTest::newRow("inside") << QByteArray("481 xsesamex sesame") << QByteArray("sesame") << 481
                            << QStringLiteral("481 x***x ***");
    QTest::newRow("code and text") << QByteArray("481 no") << QByteArray("481 no") << 481
                                   << QStringLiteral("***");
    QTest::newRow("one digit") << QByteArray("481 1") << QByteArray("1") << 481 << QStringLiteral("481 ***");
    QTest::newRow("like the code") << QByteArray("481 481") << QByteArray("481") << 481
                                   << QStringLiteral("481 ***");
    QTest::newRow("short, no code") << QByteArray("4811") << QByteArray("1") << 0
                                    << QStringLiteral("48******");
    QTest::newRow("across the cut") << "481 " + QByteArray(506, 'x') + "sesame" << QByteArray("sesame") << 481
                                    << QStringLiteral("481 ") + QString(506, QLatin1Char('x')) +
                                           QStringLiteral("**");
    QTest::newRow("control characters") << QByteArray("481 a\x01"
                                                      "b")
                                        << QByteArray("a\x01"
                                                      "b")
                                        << 481 << QStringLiteral("481 ***");
}

void tst_NntpReply::aSecretIsNeverShown()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, secret);
    QFETCH(int, code);
    QFETCH(QString, text);
    const NntpReply reply(line, secret);
    QCOMPARE(reply.code(), code);
    QCOMPARE(reply.text(), text);
}

void tst_NntpReply::noReplyIsEmpty()
{
    QCOMPARE(NntpReply().code(), 0);
    QCOMPARE(NntpReply().text(), QString());
}

QTEST_GUILESS_MAIN(tst_NntpReply)
#include "tst_nntpreply.moc"
