// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "messagereader.h"

#include <halvora/hmessage.h>

#include <QDomDocument>
#include <QtTest>

class MessageReaderTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aMessageIsReadAsItIsTold();
    void onlyWhatFollowsTheReplysOwnElementIsRead_data();
    void onlyWhatFollowsTheReplysOwnElementIsRead();
    void aMessageThatCanNotBeNamedIsLeftOut_data();
    void aMessageThatCanNotBeNamedIsLeftOut();
    void ofTooManyMessagesTheLastAreRead();
    void textsBecomeOneLineOfPlainText_data();
    void textsBecomeOneLineOfPlainText();
    void aTextOfAMillionCharactersIsCut();
    void aCutTearsNoCharacterApart();
    void datesAreReadOrLeftOut_data();
    void datesAreReadOrLeftOut();
    void linksAreKeptAsGivenOrLeftOut_data();
    void linksAreKeptAsGivenOrLeftOut();
    void flagsHaveTheirDefaults_data();
    void flagsHaveTheirDefaults();

private:
    static QVector<HMessage> read(const QString &content)
    {
        QDomDocument document;
        document.setContent(QStringLiteral("<reply version=\"1\">%1</reply>").arg(content));
        return MessageReader::read(document);
    }
    static HMessage readOne(const QString &attributes, const QString &text = QString())
    {
        return read(QStringLiteral("<success/><messages><message %1>%2</message></messages>")
                        .arg(attributes, text.toHtmlEscaped()))
            .value(0);
    }
};

void MessageReaderTest::aMessageIsReadAsItIsTold()
{
    const QVector<HMessage> messages = read(QStringLiteral(
        "<success/><messages><message uid=\"a\" date=\"1767225600000\" url=\"https://www.corvia.example/\" "
        "read=\"true\" deletable=\"false\">One</message><odd uid=\"x\"/><message uid=\"b\">Two</message>"
        "</messages>"));
    QCOMPARE(messages.size(), 2);
    QCOMPARE(messages.at(0).uid(), QStringLiteral("a"));
    QCOMPARE(messages.at(0).text(), QStringLiteral("One"));
    QCOMPARE(messages.at(0).date(), QDateTime(QDate(2026, 1, 1), QTime(0, 0), Qt::UTC));
    QCOMPARE(messages.at(0).url().url(), QUrl(QStringLiteral("https://www.corvia.example/")));
    QVERIFY(messages.at(0).isRead());
    QVERIFY(!messages.at(0).isDeletable());
    QCOMPARE(messages.at(1).uid(), QStringLiteral("b"));
    QVERIFY(messages.at(1).url().isNull());
}

void MessageReaderTest::onlyWhatFollowsTheReplysOwnElementIsRead_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<int>("count");
    const QString list = QStringLiteral("<messages><message uid=\"a\"/></messages>");
    QTest::newRow("after it") << QStringLiteral("<success/>") + list << 1;
    QTest::newRow("after an error") << QStringLiteral("<error code=\"unavailable\">x</error>") + list << 1;
    QTest::newRow("with another one between") << QStringLiteral("<success/><other/>") + list << 1;
    QTest::newRow("a second list") << QStringLiteral("<success/>") + list + list << 1;
    QTest::newRow("within it") << QStringLiteral("<success>") + list + QStringLiteral("</success>") << 0;
    QTest::newRow("as itself") << list << 0;
    QTest::newRow("no list") << QStringLiteral("<success/><message uid=\"a\"/>") << 0;
    QTest::newRow("nothing") << QString() << 0;
}

void MessageReaderTest::onlyWhatFollowsTheReplysOwnElementIsRead()
{
    QFETCH(QString, content);
    QTEST(read(content).size(), "count");
}

void MessageReaderTest::aMessageThatCanNotBeNamedIsLeftOut_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<bool>("kept");
    const auto uid = [](int length) {
        return QStringLiteral("uid=\"%1\"").arg(QString(length, QLatin1Char('u')));
    };
    QTest::newRow("no uid") << QString() << false;
    QTest::newRow("an empty one") << QStringLiteral("uid=\"\"") << false;
    QTest::newRow("a blank one") << QStringLiteral("uid=\" &#9;&#10; \"") << false;
    QTest::newRow("one of a letter") << uid(1) << true;
    QTest::newRow("the longest") << uid(255) << true;
    QTest::newRow("too long") << uid(256) << false;
    QTest::newRow("a tab and line ends") << QStringLiteral("uid=\"a&#9;&#10;&#13;\"") << true;
    QTest::newRow("a surrogate pair") << QStringLiteral("uid=\"\U0001F44B\"") << true;
    for (const char *code : {"0", "7", "x1F", "xD800", "xDFFF", "xFFFE", "xFFFF"})
        QTest::addRow("what XML cannot carry: %s", code)
            << QStringLiteral("uid=\"a&#%1;b\"").arg(QLatin1String(code)) << false;
}

void MessageReaderTest::aMessageThatCanNotBeNamedIsLeftOut()
{
    QFETCH(QString, attributes);
    QTEST(!readOne(attributes).isNull(), "kept");
}

void MessageReaderTest::ofTooManyMessagesTheLastAreRead()
{
    QString list;
    for (int i = 0; i < 10'002; ++i)
        list += QStringLiteral("<message uid=\"%1\"/><message uid=\"\"/>").arg(i);
    const QVector<HMessage> messages = read(QStringLiteral("<success/><messages>%1</messages>").arg(list));
    QCOMPARE(messages.size(), 10'000);
    QCOMPARE(messages.first().uid(), QStringLiteral("2"));
    QCOMPARE(messages.at(1).uid(), QStringLiteral("3"));
    QCOMPARE(messages.last().uid(), QStringLiteral("10001"));
}

void MessageReaderTest::textsBecomeOneLineOfPlainText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *name, const QString &text, const QString &shown) {
        QTest::newRow(name) << text << shown;
    };
    row("none", QString(), QString());
    row("lines", QStringLiteral("\n  One\r\n\tTwo\n"), QStringLiteral("One Two"));
    row("control characters", QStringLiteral("a\u0085b\u009fc\u007fd"), QStringLiteral("a b c d"));
    row("line and paragraph ends", QStringLiteral("a\u2028b\u2029c"), QStringLiteral("a b c"));
    row("markup", QStringLiteral("<b>bold</b> & <img src=\"x\"/>"),
        QStringLiteral("<b>bold</b> & <img src=\"x\"/>"));
    row("other scripts", QStringLiteral("Grüße, 世界 \U0001F44B"), QStringLiteral("Grüße, 世界 \U0001F44B"));
}

void MessageReaderTest::textsBecomeOneLineOfPlainText()
{
    QFETCH(QString, text);
    QTEST(readOne(QStringLiteral("uid=\"a\""), text).text(), "shown");
}

void MessageReaderTest::aTextOfAMillionCharactersIsCut()
{
    const QString text = readOne(QStringLiteral("uid=\"a\""), QString(1'000'000, QLatin1Char('x'))).text();
    QCOMPARE(text, QString(1'999, QLatin1Char('x')) + QChar(0x2026));
    const QString longest(2'000, QLatin1Char('x'));
    QCOMPARE(readOne(QStringLiteral("uid=\"a\""), longest).text(), longest);
}

void MessageReaderTest::aCutTearsNoCharacterApart()
{
    const QString wave = QStringLiteral("\U0001F44B");
    const QString text = readOne(QStringLiteral("uid=\"a\""), wave.repeated(1'500)).text();
    QCOMPARE(text, wave.repeated(999) + QChar(0x2026));
}

void MessageReaderTest::datesAreReadOrLeftOut_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<QDateTime>("told");
    const auto row = [](const char *name, const char *date, const QDateTime &told) {
        QTest::newRow(name) << QString::fromLatin1(date) << told;
    };
    row("none", "", {});
    row("no number", "yesterday", {});
    row("a fraction", "1.5", {});
    row("more than 64 bits", "99999999999999999999", {});
    row("year 10000", "253402300800000", {});
    row("year 0", "-62135596800001", {});
    row("in 1969", "-1", QDateTime(QDate(1969, 12, 31), QTime(23, 59, 59, 999), Qt::UTC));
    row("in 1970", "0", QDateTime(QDate(1970, 1, 1), QTime(0, 0), Qt::UTC));
    row("in 2100", "4102444800000", QDateTime(QDate(2100, 1, 1), QTime(0, 0), Qt::UTC));
    row("the last one", "253402300799999", QDateTime(QDate(9999, 12, 31), QTime(23, 59, 59, 999), Qt::UTC));
}

void MessageReaderTest::datesAreReadOrLeftOut()
{
    QFETCH(QString, date);
    QTEST(readOne(QStringLiteral("uid=\"a\" date=\"%1\"").arg(date)).date(), "told");
}

void MessageReaderTest::linksAreKeptAsGivenOrLeftOut_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<bool>("kept");
    QTest::newRow("a page") << QStringLiteral("https://www.corvia.example/a?b=1#c") << true;
    QTest::newRow("a script") << QStringLiteral("javascript:alert(1)") << true;
    QTest::newRow("a file") << QStringLiteral("file:///etc/passwd") << true;
    QTest::newRow("relative") << QStringLiteral("news/today") << true;
    QTest::newRow("none") << QString() << false;
    QTest::newRow("a blank before it") << QStringLiteral(" https://www.corvia.example/") << false;
    QTest::newRow("a percent sign alone") << QStringLiteral("https://www.corvia.example/100%") << false;
    QTest::newRow("no port") << QStringLiteral("https://www.corvia.example:port/") << false;
    QTest::newRow("long") << QStringLiteral("https://") + QString(2'040, QLatin1Char('a')) << false;
}

void MessageReaderTest::linksAreKeptAsGivenOrLeftOut()
{
    QFETCH(QString, url);
    const HMessage message = readOne(QStringLiteral("uid=\"a\" url=\"%1\"").arg(url.toHtmlEscaped()));
    QVERIFY(!message.isNull());
    QTEST(!message.url().isNull(), "kept");
    if (!message.url().isNull())
        QCOMPARE(message.url().url().toString(), url);
}

void MessageReaderTest::flagsHaveTheirDefaults_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<bool>("read");
    QTest::addColumn<bool>("deletable");
    QTest::newRow("none") << QString() << false << true;
    QTest::newRow("true") << QStringLiteral("read=\"true\" deletable=\"true\"") << true << true;
    QTest::newRow("false") << QStringLiteral("read=\"false\" deletable=\"false\"") << false << false;
    QTest::newRow("neither") << QStringLiteral("read=\"yes\" deletable=\"no\"") << false << true;
}

void MessageReaderTest::flagsHaveTheirDefaults()
{
    QFETCH(QString, attributes);
    const HMessage message = readOne(QStringLiteral("uid=\"a\" ") + attributes);
    QTEST(message.isRead(), "read");
    QTEST(message.isDeletable(), "deletable");
}

QTEST_GUILESS_MAIN(MessageReaderTest)
#include "tst_messagereader.moc"
