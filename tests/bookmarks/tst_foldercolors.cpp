// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/bookmarkitem.h"
#include "bookmarks/foldercolors.h"

#include <QTest>

class TestFolderColors : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aNameStandsForItsColour_data();
    void aNameStandsForItsColour();
    void aSwatchIsASmallSquareOfItsColour_data();
    void aSwatchIsASmallSquareOfItsColour();
    void theCornersOfASwatchAreRound();
    void aSwatchIsOpaqueWhateverItsColour();
};

namespace {

QImage swatch(const QColor &color)
{
    const QIcon icon = colorSwatchIcon(color);
    const QSize size = icon.availableSizes().value(0);
    return icon.pixmap(size).toImage().convertToFormat(QImage::Format_ARGB32);
}

} // namespace

void TestFolderColors::aNameStandsForItsColour_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QColor>("color");
    QTest::newRow("yellow") << QStringLiteral("yellow") << QColor(255, 255, 0);
    QTest::newRow("orange") << QStringLiteral("orange") << QColor(244, 155, 30);
    QTest::newRow("red") << QStringLiteral("red") << QColor(255, 0, 0);
    QTest::newRow("gray") << QStringLiteral("gray") << QColor(160, 160, 164);
    QTest::newRow("green") << QStringLiteral("green") << QColor(0, 255, 0);
    QTest::newRow("cyan") << QStringLiteral("cyan") << QColor(0, 255, 255);
    QTest::newRow("brown") << QStringLiteral("brown") << QColor(177, 148, 67);
    QTest::newRow("blue") << QStringLiteral("blue") << QColor(0, 0, 255);
    QTest::newRow("unknown") << QStringLiteral("purple") << QColor(255, 255, 0);
    QTest::newRow("capitals") << QStringLiteral("Orange") << QColor(255, 255, 0);
    QTest::newRow("with a blank") << QStringLiteral("red ") << QColor(255, 255, 0);
    QTest::newRow("empty") << QString() << QColor(255, 255, 0);
}

void TestFolderColors::aNameStandsForItsColour()
{
    QFETCH(QString, name);
    QTEST(colorForName(name), "color");
    BookmarkItem item(BookmarkKind::Bookmark, nullptr);
    item.setColor(name);
    QCOMPARE(colorForName(&item), colorForName(item.color()));
    if (folderColorNames().contains(name))
        QTEST(colorForName(&item), "color");
}

void TestFolderColors::aSwatchIsASmallSquareOfItsColour_data()
{
    QTest::addColumn<QColor>("color");
    const QStringList names = folderColorNames();
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << colorForName(name);
}

void TestFolderColors::aSwatchIsASmallSquareOfItsColour()
{
    QFETCH(QColor, color);
    QCOMPARE(colorSwatchIcon(color).availableSizes(), QList<QSize>{QSize(16, 16)});
    const QImage image = swatch(color);
    for (int line = 2; line < 14; ++line) {
        for (const int column : {0, 1, 8, 15})
            QCOMPARE(image.pixelColor(column, line), color);
    }
}

// The corner is mostly bare, the two beside it are not quite full, and the next are.
void TestFolderColors::theCornersOfASwatchAreRound()
{
    const QImage image = swatch(Qt::black);
    const QVector<QImage> turned = {image, image.mirrored(true, false), image.mirrored(false, true),
                                    image.mirrored(true, true)};
    for (const QImage &side : turned) {
        QVERIFY(side.pixelColor(0, 0).alpha() < 128);
        QVERIFY(side.pixelColor(1, 0).alpha() > side.pixelColor(0, 0).alpha());
        QVERIFY(side.pixelColor(1, 0).alpha() < 255);
        QCOMPARE(side.pixelColor(2, 0).alpha(), 255);
        QCOMPARE(side.pixelColor(0, 2).alpha(), 255);
        QCOMPARE(side.pixelColor(1, 1).alpha(), 255);
    }
}

void TestFolderColors::aSwatchIsOpaqueWhateverItsColour()
{
    QCOMPARE(swatch(QColor(244, 155, 30, 10)).pixelColor(8, 8), QColor(244, 155, 30));
    QCOMPARE(swatch(QColor()).pixelColor(8, 8).alpha(), 255);
}

QTEST_MAIN(TestFolderColors)
#include "tst_foldercolors.moc"
