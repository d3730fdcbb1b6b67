// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/stringformat.h>

#include <QDateTime>
#include <QLocale>
#include <QtTest>

#include <ctime>
#include <limits>

class StringFormatTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void bytesAreToldInTheLargestFittingUnit_data();
    void bytesAreToldInTheLargestFittingUnit();
    void numbersFollowTheLocale();
    void speedIsAnAmountEachSecond();
    void datesFollowTheLocaleAndTheLocalTime();
    void anInvalidDateIsNoText();
    void tinyNamesKeepTheLastPart_data();
    void tinyNamesKeepTheLastPart();
    void aHalfLetterInATinyNameIsKeptAsItIs();
    void aNameOfAMillionPartsIsShortened();
};

void StringFormatTest::initTestCase()
{
    // Half an hour off, and without summer time: local time is never mistaken for UTC.
    qputenv("TZ", "Asia/Kolkata");
    ::tzset();
}

void StringFormatTest::bytesAreToldInTheLargestFittingUnit_data()
{
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<int>("notation");
    QTest::addColumn<int>("precision");
    QTest::addColumn<QString>("text");
    const auto row = [](qint64 bytes, StringFormat::ByteNotation notation, int precision, const char *text) {
        QTest::addRow("%lld/%d/%d", static_cast<long long>(bytes), int(notation), precision)
            << bytes << int(notation) << precision << QString::fromLatin1(text);
    };
    const auto binary = StringFormat::BinaryNotation;
    const auto decimal = StringFormat::DecimalNotation;
    row(0, binary, -1, "0 bytes");
    row(1, binary, -1, "1 byte");
    row(-1, binary, -1, "-1 byte");
    row(2, binary, -1, "2 bytes");
    row(512, binary, 3, "512 bytes");
    row(1023, binary, -1, "1,023 bytes");
    row(1024, binary, -1, "1 KiB");
    row(1536, binary, -1, "1.5 KiB");
    row(1290, binary, -1, "1.26 KiB");
    row(12 * 1024 + 308, binary, -1, "12.3 KiB");
    row(1023 * 1024, binary, -1, "1,023 KiB");
    row(1024 * 1024 - 1, binary, -1, "1 MiB");
    row(1024 * 1024 - 1, binary, 2, "1.00 MiB");
    row(1024 * 1024 - 1, binary, 3, "1,023.999 KiB");
    row(1610612736, binary, -1, "1.5 GiB");
    row(1610612736, binary, 0, "2 GiB");
    row(1610612736, binary, 3, "1.500 GiB");
    row(1610612736, binary, 1000, "1.500000000 GiB");
    row(-1610612736, binary, -1, "-1.5 GiB");
    row(qint64(1) << 40, binary, -1, "1 TiB");
    row(qint64(1) << 50, binary, -1, "1 PiB");
    row(std::numeric_limits<qint64>::max(), binary, -1, "8 EiB");
    row(std::numeric_limits<qint64>::min(), binary, -1, "-8 EiB");
    row(std::numeric_limits<qint64>::min(), decimal, -1, "-9.22 EB");
    row(999, decimal, -1, "999 bytes");
    row(1000, decimal, -1, "1 kB");
    row(999999, decimal, -1, "1 MB");
    row(1500000000, decimal, -1, "1.5 GB");
    row(9995, decimal, -1, "10 kB");
    row(99949, decimal, -1, "99.9 kB");
    row(99950, decimal, -1, "100 kB");
}

void StringFormatTest::bytesAreToldInTheLargestFittingUnit()
{
    QFETCH(qint64, bytes);
    QFETCH(int, notation);
    QFETCH(int, precision);
    QFETCH(QString, text);
    QCOMPARE(StringFormat::byteCount(bytes, StringFormat::ByteFormatDefault,
                                     StringFormat::ByteNotation(notation), precision),
             text);
}

void StringFormatTest::numbersFollowTheLocale()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QCOMPARE(StringFormat::byteCount(1536, StringFormat::ByteFormatDefault, StringFormat::BinaryNotation, -1),
             QStringLiteral("1,5 KiB"));
}

void StringFormatTest::speedIsAnAmountEachSecond()
{
    QCOMPARE(
        StringFormat::byteCount(1536, StringFormat::ByteFormatPerSecond, StringFormat::BinaryNotation, -1),
        QStringLiteral("1.5 KiB/s"));
}

void StringFormatTest::datesFollowTheLocaleAndTheLocalTime()
{
    const QDateTime local(QDate(2026, 11, 20), QTime(16, 5));
    QCOMPARE(StringFormat::dateTime(local.toUTC(), StringFormat::ShortDateTime),
             QLocale().toString(local, QLocale::ShortFormat));
    const QString american = StringFormat::dateTime(local, StringFormat::ShortDateTime);
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const QString german = StringFormat::dateTime(local, StringFormat::ShortDateTime);
    QVERIFY2(german.startsWith(QStringLiteral("20.11.")), qPrintable(german));
    QVERIFY2(american.startsWith(QStringLiteral("11/20/")), qPrintable(american));
}

void StringFormatTest::anInvalidDateIsNoText()
{
    QCOMPARE(StringFormat::dateTime(QDateTime(), StringFormat::ShortDateTime), QString());
}

void StringFormatTest::tinyNamesKeepTheLastPart_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("tiny");
    const auto row = [](const char *name, const char *tiny) {
        QTest::newRow(name) << QString::fromUtf8(name) << QString::fromUtf8(tiny);
    };
    row("alt.binaries.pictures.nature", "a.b.p.nature");
    row("alt.binaries.test", "a.b.test");
    row("alt.binaries.", "a.b.");
    row("alt.binaries..x", "a.b..x");
    row("alt.binaries...", "a.b...");
    row("alt.binaries.pictures.", "a.b.p.");
    row("alt.binaries.p.x", "a.b.p.x");
    row("alt.binaries", "alt.binaries");
    row("alt.binariesx.pictures.nature", "alt.binariesx.pictures.nature");
    row("ALT.BINARIES.PICTURES.NATURE", "ALT.BINARIES.PICTURES.NATURE");
    row("free.alt.binaries.pictures", "free.alt.binaries.pictures");
    row("alt.binaries.\u00fcbung.x", "a.b.\u00fc.x");
    row("alt.binaries.\U0001F3B5music.x", "a.b.\U0001F3B5.x");
    row("alt.binaries.music.\U0001F3B5", "a.b.m.\U0001F3B5");
    row("comp.lang.c++", "comp.lang.c++");
    row("", "");
}

void StringFormatTest::tinyNamesKeepTheLastPart()
{
    QFETCH(QString, name);
    QFETCH(QString, tiny);
    QCOMPARE(StringFormat::tinyNewsgroupName(name), tiny);
}

void StringFormatTest::aHalfLetterInATinyNameIsKeptAsItIs()
{
    const QString lone = QStringLiteral("alt.binaries.") + QChar(0xD83C);
    QCOMPARE(StringFormat::tinyNewsgroupName(lone + QStringLiteral("abc.x")),
             QStringLiteral("a.b.") + QChar(0xD83C) + QStringLiteral(".x"));
    QCOMPARE(StringFormat::tinyNewsgroupName(lone), QStringLiteral("a.b.") + QChar(0xD83C));
}

void StringFormatTest::aNameOfAMillionPartsIsShortened()
{
    const int parts = 1'000'000;
    const QString name = QStringLiteral("alt.binaries.") + QStringLiteral("part.").repeated(parts);
    QCOMPARE(StringFormat::tinyNewsgroupName(name),
             QStringLiteral("a.b.") + QStringLiteral("p.").repeated(parts));
}

QTEST_GUILESS_MAIN(StringFormatTest)
#include "tst_stringformat.moc"
