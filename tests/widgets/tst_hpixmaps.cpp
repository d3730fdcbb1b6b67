// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hpixmaps.h>

#include <QImage>
#include <QtTest>

// Runs as it is and once more with QT_SCALE_FACTOR=2.
class TestPixmaps : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theScaleIsTheOneThatWasAskedFor();
    void aDrawingFillsItsSizeAtThePixelsOfTheScreen_data();
    void aDrawingFillsItsSizeAtThePixelsOfTheScreen();
    void aSquareIsTheSameByNumberAndBySize();
    void aDrawingKeepsItsProportions();
    void aDrawingIsRenderedAndNotStretched();
    void greyHasNoColourAndTheSameShape();
    void whatCannotBeReadIsNull_data();
    void whatCannotBeReadIsNull();
    void theDoublePictureIsTakenOnlyOnASharpScreen();
    void theDoublePictureIsNotTakenWhenNobodyAskedForIt();
    void withoutADoublePictureTheSingleOneServes();
    void aNumberFillsEveryPlaceInThePattern();
    void aPictureThatIsNotThereIsNull();
    void panelsHaveASize();

private:
    QString write(const QString &name, const QByteArray &content) const;
    QString drawing() const { return m_folder.filePath(QStringLiteral("drawing.svg")); }
    void savePicture(const QString &name, const QSize &size, Qt::GlobalColor color) const;

    QTemporaryDir m_folder;
    int m_scale = 1;
};

QString TestPixmaps::write(const QString &name, const QByteArray &content) const
{
    QFile file(m_folder.filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? file.fileName()
                                                                                    : QString();
}

void TestPixmaps::savePicture(const QString &name, const QSize &size, Qt::GlobalColor color) const
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QVERIFY(image.save(m_folder.filePath(name)));
}

void TestPixmaps::initTestCase()
{
    QVERIFY(m_folder.isValid());
    m_scale = qMax(1, qEnvironmentVariableIntValue("QT_SCALE_FACTOR"));
    // Twice as wide as high: red at the left, blue at the right.
    QCOMPARE(write(QStringLiteral("drawing.svg"),
                   "<svg xmlns='http://www.w3.org/2000/svg' width='20' height='10' viewBox='0 0 20 10'>"
                   "<rect width='10' height='10' fill='#ff0000'/><rect x='10' width='10' height='10' "
                   "fill='#0000ff'/></svg>"),
             drawing());
}

void TestPixmaps::theScaleIsTheOneThatWasAskedFor()
{
    QCOMPARE(qApp->devicePixelRatio(), qreal(m_scale));
}

void TestPixmaps::aDrawingFillsItsSizeAtThePixelsOfTheScreen_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("wide") << QSize(40, 20);
    QTest::newRow("high") << QSize(16, 48);
    QTest::newRow("one point") << QSize(1, 1);
}

void TestPixmaps::aDrawingFillsItsSizeAtThePixelsOfTheScreen()
{
    QFETCH(QSize, size);
    const QPixmap pixmap = hSvgPixmap(drawing(), size);
    QCOMPARE(pixmap.size(), size * m_scale);
    QCOMPARE(pixmap.devicePixelRatio(), qreal(m_scale));
}

void TestPixmaps::aSquareIsTheSameByNumberAndBySize()
{
    QCOMPARE(hSvgPixmap(drawing(), 24).toImage(), hSvgPixmap(drawing(), QSize(24, 24)).toImage());
    QCOMPARE(hSvgPixmap(drawing(), 24).size(), QSize(24, 24) * m_scale);
}

void TestPixmaps::aDrawingKeepsItsProportions()
{
    const QImage image = hSvgPixmap(drawing(), 20).toImage();
    QCOMPARE(image.pixelColor(5 * m_scale, 10 * m_scale), QColor(Qt::red));
    QCOMPARE(image.pixelColor(15 * m_scale, 10 * m_scale), QColor(Qt::blue));
    QCOMPARE(image.pixelColor(10 * m_scale, 2 * m_scale).alpha(), 0);
    QCOMPARE(image.pixelColor(10 * m_scale, 17 * m_scale).alpha(), 0);
}

void TestPixmaps::aDrawingIsRenderedAndNotStretched()
{
    const QImage image = hSvgPixmap(drawing(), QSize(200, 100)).toImage();
    QCOMPARE(image.pixelColor(100 * m_scale - 1, 50), QColor(Qt::red));
    QCOMPARE(image.pixelColor(100 * m_scale, 50), QColor(Qt::blue));
}

void TestPixmaps::greyHasNoColourAndTheSameShape()
{
    const QImage colour = hSvgPixmapExt(drawing(), 20, 20, true).toImage();
    const QImage grey = hSvgPixmapExt(drawing(), 20, 20, false).toImage();
    QCOMPARE(colour, hSvgPixmap(drawing(), 20).toImage());
    QCOMPARE(grey.size(), colour.size());
    for (int y = 0; y < grey.height(); ++y) {
        for (int x = 0; x < grey.width(); ++x) {
            const QColor color = grey.pixelColor(x, y);
            QCOMPARE(color.saturation(), 0);
            QCOMPARE(color.alpha(), colour.pixelColor(x, y).alpha());
        }
    }
    // Red is lighter than blue to the eye, and must stay so.
    QVERIFY(grey.pixelColor(5 * m_scale, 10 * m_scale).value() >
            grey.pixelColor(15 * m_scale, 10 * m_scale).value());
}

void TestPixmaps::whatCannotBeReadIsNull_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QSize>("size");
    const QSize size(16, 16);
    QTest::newRow("no name") << QString() << size;
    QTest::newRow("not there") << m_folder.filePath(QStringLiteral("missing.svg")) << size;
    QTest::newRow("not in the resources") << QStringLiteral(":/missing.svg") << size;
    QTest::newRow("a folder") << m_folder.path() << size;
    QTest::newRow("empty") << write(QStringLiteral("empty.svg"), QByteArray()) << size;
    QTest::newRow("not a drawing") << write(QStringLiteral("text.svg"), "<html><body/></html>") << size;
    QTest::newRow("cut off") << write(QStringLiteral("cut.svg"), "<svg xmlns='http://www.w3.org/2000/sv")
                             << size;
    QTest::newRow("bytes") << write(QStringLiteral("bytes.svg"), QByteArray(4096, '\xff')) << size;
    QTest::newRow("no width") << drawing() << QSize(0, 16);
    QTest::newRow("less than nothing") << drawing() << QSize(16, -1);
    QTest::newRow("no size") << drawing() << QSize();
    QTest::newRow("a poster") << drawing() << QSize(5000, 20);
    QTest::newRow("gigabytes") << drawing() << QSize(std::numeric_limits<int>::max(), 30000);
}

void TestPixmaps::whatCannotBeReadIsNull()
{
    QFETCH(QString, path);
    QFETCH(QSize, size);
    QVERIFY(hSvgPixmap(path, size).isNull());
    QVERIFY(hSvgPixmapExt(path, size.width(), size.height(), true).isNull());
}

void TestPixmaps::theDoublePictureIsTakenOnlyOnASharpScreen()
{
    savePicture(QStringLiteral("both30.png"), {60, 30}, Qt::red);
    savePicture(QStringLiteral("both60.png"), {120, 60}, Qt::blue);
    const QPixmap pixmap = hRetinaPixmap3(m_folder.filePath(QStringLiteral("both%1.png")), 30, true);
    QCOMPARE(pixmap.size(), QSize(60, 30) * (m_scale > 1 ? 2 : 1));
    QCOMPARE(pixmap.devicePixelRatio(), m_scale > 1 ? 2.0 : 1.0);
    QCOMPARE(pixmap.toImage().pixelColor(0, 0), QColor(m_scale > 1 ? Qt::blue : Qt::red));
}

void TestPixmaps::theDoublePictureIsNotTakenWhenNobodyAskedForIt()
{
    savePicture(QStringLiteral("plain30.png"), {60, 30}, Qt::red);
    savePicture(QStringLiteral("plain60.png"), {120, 60}, Qt::blue);
    const QPixmap pixmap = hRetinaPixmap3(m_folder.filePath(QStringLiteral("plain%1.png")), 30, false);
    QCOMPARE(pixmap.size(), QSize(60, 30));
    QCOMPARE(pixmap.devicePixelRatio(), 1.0);
}

void TestPixmaps::withoutADoublePictureTheSingleOneServes()
{
    savePicture(QStringLiteral("single30.png"), {60, 30}, Qt::red);
    const QPixmap pixmap = hRetinaPixmap3(m_folder.filePath(QStringLiteral("single%1.png")), 30, true);
    QCOMPARE(pixmap.size(), QSize(60, 30));
    QCOMPARE(pixmap.devicePixelRatio(), 1.0);
}

void TestPixmaps::aNumberFillsEveryPlaceInThePattern()
{
    QCOMPARE(hRetinaPixmap3(QStringLiteral(":/app/icon/%1x%1.png"), 32, false).size(), QSize(32, 32));
    const QPixmap sharp = hRetinaPixmap3(QStringLiteral(":/app/icon/%1x%1.png"), 32, true);
    QCOMPARE(sharp.size(), m_scale > 1 ? QSize(64, 64) : QSize(32, 32));
}

void TestPixmaps::aPictureThatIsNotThereIsNull()
{
    QVERIFY(hRetinaPixmap3(QStringLiteral(":/none%1.png"), 1, true).isNull());
    QVERIFY(hRetinaPixmap3(QStringLiteral(":/none.png"), std::numeric_limits<int>::max(), true).isNull());
    QVERIFY(hRetinaPixmap3(QString(), 1, false).isNull());
}

void TestPixmaps::panelsHaveASize()
{
    QCOMPARE(hDockWidgetHeight(), 150);
    QCOMPARE(hSidebarWidth(), 220);
}

QTEST_MAIN(TestPixmaps)
#include "tst_hpixmaps.moc"
