// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hpixmaps.h>
#include <halvora/stylehelper.h>

#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QtTest>

class TestArtwork : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyIconIsThere_data() { icons(); }
    void everyIconIsThere();
    void everyIconIsSeenOnLightAndDark_data() { icons(); }
    void everyIconIsSeenOnLightAndDark();
    void noDrawingNeedsAFontOrAnotherFile_data();
    void noDrawingNeedsAFontOrAnotherFile();
    void everyPictureHasTheSizeOfItsName_data();
    void everyPictureHasTheSizeOfItsName();
    void everyPictureShowsItsDrawing_data() { everyPictureHasTheSizeOfItsName_data(); }
    void everyPictureShowsItsDrawing();

private:
    static void icons();
};

void TestArtwork::icons()
{
    QTest::addColumn<QString>("path");
    for (const char *name :
         {"about", "help", "login", "logout", "panel", "quit", "report", "settings", "update"})
        QTest::newRow(name) << QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name));
    for (const char *name : {"gauge", "lock", "chart_area"})
        QTest::newRow(name) << QStringLiteral(":/svg/%1.svg").arg(QLatin1String(name));
    for (const char *color : {"orange", "yellow", "red", "gray", "green", "brown", "cyan", "blue"})
        QTest::newRow(color) << QStringLiteral(":/corvia/bookmarks/folder_%1.svg").arg(QLatin1String(color));
    QTest::newRow("newsgroup") << QStringLiteral(":/corvia/bookmarks/newsgroup_default.svg");
    QTest::newRow("the program") << QStringLiteral(":/app/icon/halvora.svg");
}

void TestArtwork::everyIconIsThere()
{
    QFETCH(QString, path);
    QVERIFY(!hSvgPixmap(path, 16).isNull());
}

void TestArtwork::everyIconIsSeenOnLightAndDark()
{
    QFETCH(QString, path);
    const QImage image = hSvgPixmap(path, 16).toImage().convertToFormat(QImage::Format_ARGB32);
    int covered = 0;
    int readable = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            if (color.alpha() < 200)
                continue;
            ++covered;
            // WCAG 2.1, 1.4.11: three to one for symbols.
            readable += StyleHelper::contrast(color, Qt::white) >= 3 &&
                        StyleHelper::contrast(color, QColor(0x20, 0x23, 0x26)) >= 3;
        }
    }
    const int tenth = image.width() * image.height() / 10;
    QVERIFY2(covered > tenth, qPrintable(QString::number(covered)));
    QVERIFY2(readable * 10 > covered * 4, qPrintable(QStringLiteral("%1 of %2").arg(readable).arg(covered)));
}

void TestArtwork::noDrawingNeedsAFontOrAnotherFile_data()
{
    icons();
    QTest::newRow("banner") << QStringLiteral(":/corvia/images/login.svg");
}

void TestArtwork::noDrawingNeedsAFontOrAnotherFile()
{
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    for (const char *word : {"<text", "font", "href", "<image", "<style", "<script", "DOCTYPE"})
        QVERIFY2(!text.contains(word), word);
}

void TestArtwork::everyPictureHasTheSizeOfItsName_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("drawing");
    QTest::addColumn<QSize>("size");
    for (const int side : {16, 32, 48, 64, 128, 256}) {
        QTest::newRow(qPrintable(QString::number(side)))
            << QStringLiteral(":/app/icon/%1x%1.png").arg(side) << QStringLiteral(":/app/icon/halvora.svg")
            << QSize(side, side);
    }
    const QString banner = QStringLiteral(":/corvia/images/login.svg");
    QTest::newRow("banner") << QStringLiteral(":/corvia/images/login100.png") << banner << QSize(450, 100);
    QTest::newRow("banner, double") << QStringLiteral(":/corvia/images/login200.png") << banner
                                    << QSize(900, 200);
    for (const char *color : {"orange", "yellow", "red", "gray", "green", "brown", "cyan", "blue"}) {
        const QString folder = QStringLiteral(":/corvia/bookmarks/folder_%1").arg(QLatin1String(color));
        const QString itsDrawing = folder + QStringLiteral(".svg");
        QTest::newRow(color) << folder + QStringLiteral(".png") << itsDrawing << QSize(16, 16);
        QTest::addRow("%s, double", color)
            << folder + QStringLiteral("@2x.png") << itsDrawing << QSize(32, 32);
    }
}

void TestArtwork::everyPictureHasTheSizeOfItsName()
{
    QFETCH(QString, path);
    QFETCH(QSize, size);
    QCOMPARE(QImageReader(path).size(), size);
}

void TestArtwork::everyPictureShowsItsDrawing()
{
    QFETCH(QString, path);
    QFETCH(QString, drawing);
    QFETCH(QSize, size);
    const QImage picture = QImage(path).convertToFormat(QImage::Format_ARGB32);
    // Two renderers smooth edges differently, so a small picture of each is compared.
    const QSize small = size.scaled(16, 16, Qt::KeepAspectRatioByExpanding);
    const auto shrunk = [&small](const QImage &image) {
        return image.scaled(small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    };
    const int apart = 80;
    const QImage one = shrunk(picture);
    const QImage other = shrunk(hSvgPixmap(drawing, size).toImage());
    for (int y = 0; y < small.height(); ++y) {
        for (int x = 0; x < small.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            QVERIFY2(
                qAbs(qAlpha(a) - qAlpha(b)) < apart && qAbs(qRed(a) - qRed(b)) < apart &&
                    qAbs(qGreen(a) - qGreen(b)) < apart && qAbs(qBlue(a) - qBlue(b)) < apart,
                qPrintable(QStringLiteral("at %1,%2: %3, %4").arg(x).arg(y).arg(a, 8, 16).arg(b, 8, 16)));
        }
    }
}

QTEST_MAIN(TestArtwork)
#include "tst_artwork.moc"
