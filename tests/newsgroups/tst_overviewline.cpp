// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "overviewline.h"

#include <QDateTime>
#include <QtTest>

class TestOverviewLine : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aLineTellsAnArticle();
    void whatIsOutsideTheRangeIsLeftOut_data();
    void whatIsOutsideTheRangeIsLeftOut();
    void missingFieldsAreNotTold_data();
    void missingFieldsAreNotTold();
    void onlySizesThatCanBeCount_data();
    void onlySizesThatCanBeCount();
    void filesAreToldByTheirSubject_data();
    void filesAreToldByTheirSubject();

private:
    static std::optional<Article> parse(const QByteArray &line, qint64 first = 100, qint64 last = 200)
    {
        return overviewline::parse(line.constData(), line.size(), first, last);
    }
};

void TestOverviewLine::aLineTellsAnArticle()
{
    const std::optional<Article> article =
        parse("150\t=?utf-8?q?Gr=C3=BC=C3=9Fe?=\tInes <ines@aubry.example>\t"
              "Tue, 06 Feb 2024 08:49:37 +0000\t<a@b>\t<c@d>\t4567\t12\tXref: x");
    QVERIFY(article);
    QCOMPARE(article->number, qint64(150));
    QCOMPARE(article->subject, QStringLiteral("Grüße"));
    QCOMPARE(article->poster, QStringLiteral("Ines"));
    QCOMPARE(article->date, QDateTime(QDate(2024, 2, 6), QTime(8, 49, 37), Qt::UTC).toSecsSinceEpoch());
    QCOMPARE(article->bytes, qint64(4567));
}

void TestOverviewLine::whatIsOutsideTheRangeIsLeftOut_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<bool>("isThere");
    QTest::newRow("first") << QByteArray("100") << true;
    QTest::newRow("last") << QByteArray("200") << true;
    QTest::newRow("zeros before") << QByteArray("0000000150") << true;
    QTest::newRow("before") << QByteArray("99") << false;
    QTest::newRow("behind") << QByteArray("201") << false;
    QTest::newRow("negative") << QByteArray("-150") << false;
    QTest::newRow("plus") << QByteArray("+150") << false;
    QTest::newRow("blank") << QByteArray(" 150") << false;
    QTest::newRow("empty") << QByteArray() << false;
    QTest::newRow("no number") << QByteArray("abc") << false;
    QTest::newRow("hexadecimal") << QByteArray("0x96") << false;
    QTest::newRow("huge") << QByteArray("99999999999999999999999150") << false;
    QTest::newRow("around 2^64") << QByteArray("18446744073709551766") << false;
}

void TestOverviewLine::whatIsOutsideTheRangeIsLeftOut()
{
    QFETCH(QByteArray, number);
    QTEST(parse(number + "\tsubject\tfrom\tdate\tid\trefs\t1\t1").has_value(), "isThere");
    QTEST(parse(number).has_value(), "isThere");
}

void TestOverviewLine::missingFieldsAreNotTold_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("number alone") << QByteArray("150");
    QTest::newRow("empty fields") << QByteArray("150\t\t\t\t\t\t\t");
    QTest::newRow("blanks") << QByteArray("150\t  \t \t  \t \t \t \t ");
    QTest::newRow("nonsense") << QByteArray("150\t\x01\t\x02\tnever\tx\ty\tmany\tfew");
}

void TestOverviewLine::missingFieldsAreNotTold()
{
    QFETCH(QByteArray, line);
    const std::optional<Article> article = parse(line);
    QVERIFY(article);
    QCOMPARE(article->subject, QString());
    QCOMPARE(article->poster, QString());
    QCOMPARE(article->date, Article::noDate);
    QCOMPARE(article->bytes, Article::noSize);
}

void TestOverviewLine::onlySizesThatCanBeCount_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<qint64>("bytes");
    QTest::newRow("one") << QByteArray("1") << qint64(1);
    QTest::newRow("zeros before") << QByteArray("000123") << qint64(123);
    QTest::newRow("blanks") << QByteArray(" 123 ") << qint64(123);
    QTest::newRow("a terabyte") << QByteArray("1099511627776") << (qint64(1) << 40);
    QTest::newRow("more") << QByteArray("1099511627777") << Article::noSize;
    QTest::newRow("none") << QByteArray("0") << Article::noSize;
    QTest::newRow("negative") << QByteArray("-5") << Article::noSize;
    QTest::newRow("huge") << QByteArray("99999999999999999999") << Article::noSize;
    QTest::newRow("fraction") << QByteArray("1.5") << Article::noSize;
}

void TestOverviewLine::onlySizesThatCanBeCount()
{
    QFETCH(QByteArray, field);
    QTEST(parse("150\ts\tf\td\ti\tr\t" + field + "\t1")->bytes, "bytes");
}

void TestOverviewLine::filesAreToldByTheirSubject_data()
{
    QTest::addColumn<QByteArray>("subject");
    QTest::addColumn<bool>("isFile");
    QTest::newRow("part") << QByteArray("Landscape lake.jpg (2/17)") << true;
    QTest::newRow("parts in words") << QByteArray("Part 1 of (x/y)") << false;
    QTest::newRow("no number behind") << QByteArray("(1/)") << false;
    QTest::newRow("open") << QByteArray("(1/2") << false;
    QTest::newRow("second brackets") << QByteArray("lake (new) (01/02)") << true;
    QTest::newRow("encoded") << QByteArray("\"lake.jpg\" yEnc (1/1)") << true;
    QTest::newRow("name") << QByteArray("Here is \"lake.jpg\"") << true;
    QTest::newRow("quotation") << QByteArray("He said \"no way.\"") << false;
    QTest::newRow("long quotation") << QByteArray("\"I came. I saw and won\"") << false;
    QTest::newRow("answer") << QByteArray("Re: \"lake.jpg\" (1/2)") << false;
    QTest::newRow("text") << QByteArray("Which lake is this?") << false;
    QTest::newRow("empty") << QByteArray() << false;
}

void TestOverviewLine::filesAreToldByTheirSubject()
{
    QFETCH(QByteArray, subject);
    QTEST(parse("150\t" + subject)->isFile(), "isFile");
}

QTEST_GUILESS_MAIN(TestOverviewLine)
#include "tst_overviewline.moc"
