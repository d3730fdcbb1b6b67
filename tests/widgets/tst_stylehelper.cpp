// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/stylehelper.h>

#include <QSignalSpy>
#include <QWidget>
#include <QtTest>

class TestStyleHelper : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { StyleHelper::setBaseColor(QColor()); }
    void theBaseColourIsTheOneThatWasSet();
    void anInvalidColourGoesBackToTheProgramsOwn();
    void titlesAreReadableOnEveryBaseColour_data();
    void titlesAreReadableOnEveryBaseColour();
    void contrastFollowsItsDefinition();
};

void TestStyleHelper::theBaseColourIsTheOneThatWasSet()
{
    StyleHelper::setBaseColor(QColor(0x33, 0x99, 0xff));
    QCOMPARE(StyleHelper::baseColor(), QColor(0x33, 0x99, 0xff));
}

void TestStyleHelper::anInvalidColourGoesBackToTheProgramsOwn()
{
    StyleHelper::setBaseColor(Qt::yellow);
    StyleHelper::setBaseColor(QColor());
    QCOMPARE(StyleHelper::baseColor(), QColor(0x3a, 0x4a, 0x65));
}

void TestStyleHelper::titlesAreReadableOnEveryBaseColour_data()
{
    QTest::addColumn<QColor>("base");
    for (const char *name :
         {"#3a4a65", "#3399ff", "#0a2a51", "#ffffff", "#000000", "#ffff00", "#ff0000", "#808080"})
        QTest::newRow(name) << QColor(QLatin1String(name));
}

void TestStyleHelper::titlesAreReadableOnEveryBaseColour()
{
    QFETCH(QColor, base);
    StyleHelper::setBaseColor(base);
    QVERIFY(StyleHelper::contrast(StyleHelper::titleColor(), base) >= 4.5);
    QVERIFY(StyleHelper::contrast(StyleHelper::titleColor(), StyleHelper::buttonColor(false)) >= 3);
}

void TestStyleHelper::contrastFollowsItsDefinition()
{
    QCOMPARE(StyleHelper::contrast(Qt::white, Qt::black), 21.0);
    QCOMPARE(StyleHelper::contrast(Qt::black, Qt::white), 21.0);
    QCOMPARE(StyleHelper::contrast(Qt::red, Qt::red), 1.0);
    // 0.2126 of the light of white, by the definition of the relative luminance.
    QVERIFY(qAbs(StyleHelper::contrast(Qt::red, Qt::black) - (0.2126 + 0.05) / 0.05) < 0.001);
}

QTEST_MAIN(TestStyleHelper)
#include "tst_stylehelper.moc"
