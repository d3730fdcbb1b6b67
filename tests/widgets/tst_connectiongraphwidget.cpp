// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/connectiongraphwidget.h>
#include <halvora/trafficmeter.h>

#include <QImage>
#include <QLocale>
#include <QtTest>

namespace {

class PaintCounter : public QObject {
public:
    int paints = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};

bool shows(const QImage &image, const QColor &color)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color)
                return true;
        }
    }
    return false;
}

} // namespace

class TestConnectionGraph : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void itFitsIntoAStatusBar();
    void aRateIsBytesBySeconds();
    void theLastMinuteIsKept();
    void whatCameWhileNobodyLookedIsAnEvenFlow();
    void aLookTooSoonWaitsForTheNext();
    void bytesFromBeforeTheGraphDoNotCount();
    void theRateIsToldInWords();
    void theSetColoursArePainted();
    void anInvalidColourIsIgnored();
    void anIdleConnectionIsAFlatLine();
    void aFasterFlowIsHigher();
    void itLooksOnceASecondWhileItIsVisible();
    void itDoesNotLookWhileItIsHidden();
    void anIdleConnectionPaintsNothing();
    void hugeCountsDoNoHarm();

private:
    void second(qint64 bytes)
    {
        m_meter->addNntpDown(bytes);
        m_now += 1000;
        m_graph->sample();
    }
    int heightAt(int second) const;

    std::unique_ptr<TrafficMeter> m_meter;
    std::unique_ptr<ConnectionGraphWidget> m_graph;
    qint64 m_now = 0;
    int m_looks = 0;
};

void TestConnectionGraph::init()
{
    m_graph.reset();
    m_meter = std::make_unique<TrafficMeter>();
    m_graph = std::make_unique<ConnectionGraphWidget>(*m_meter);
    m_now = 5000;
    m_graph->setClock([this] {
        ++m_looks;
        return m_now;
    });
    m_graph->resize(m_graph->sizeHint());
    ConnectionGraphWidget::setBackgroundColor(QColor(10, 20, 30));
    ConnectionGraphWidget::setBorderColor(QColor(200, 100, 50));
    ConnectionGraphWidget::setForegroundColor(QColor(90, 240, 130));
}

/// How many pixels of the foreground stand above each other at the column of a second.
int TestConnectionGraph::heightAt(int second) const
{
    const QImage image = m_graph->grab().toImage();
    const int inner = image.width() - 4;
    const int x = 2 + inner * second / 59;
    int height = 0;
    for (int y = 0; y < image.height(); ++y)
        height += image.pixelColor(qMin(x, image.width() - 3), y) == ConnectionGraphWidget::foregroundColor();
    return height;
}

void TestConnectionGraph::itFitsIntoAStatusBar()
{
    QCOMPARE(m_graph->sizeHint(), QSize(100, 16));
    QCOMPARE(m_graph->rates().size(), 60);
}

void TestConnectionGraph::aRateIsBytesBySeconds()
{
    second(5000);
    QCOMPARE(m_graph->rates().constLast(), 5000);
    m_meter->addNntpDown(3000);
    m_now += 1500;
    m_graph->sample();
    QCOMPARE(m_graph->rates().constLast(), 2000);
}

void TestConnectionGraph::theLastMinuteIsKept()
{
    for (int i = 1; i <= 75; ++i)
        second(i);
    QCOMPARE(m_graph->rates().size(), 60);
    QCOMPARE(m_graph->rates().constFirst(), 16);
    QCOMPARE(m_graph->rates().constLast(), 75);
}

void TestConnectionGraph::whatCameWhileNobodyLookedIsAnEvenFlow()
{
    second(700);
    m_meter->addNntpDown(10 * 2000);
    m_now += 10000;
    m_graph->sample();
    QCOMPARE(m_graph->rates().mid(50), QVector<qint64>(10, 2000));
    QCOMPARE(m_graph->rates().at(49), 700);

    m_meter->addNntpDown(7200 * 100);
    m_now += 7200 * 1000;
    m_graph->sample();
    QCOMPARE(m_graph->rates(), QVector<qint64>(60, 100));
}

void TestConnectionGraph::aLookTooSoonWaitsForTheNext()
{
    second(100);
    m_meter->addNntpDown(400);
    m_now += 20;
    m_graph->sample();
    QCOMPARE(m_graph->rates().constLast(), 100);
    m_now += 980;
    m_graph->sample();
    QCOMPARE(m_graph->rates().constLast(), 400);
}

void TestConnectionGraph::bytesFromBeforeTheGraphDoNotCount()
{
    m_meter->addNntpDown(123456);
    ConnectionGraphWidget later(*m_meter);
    qint64 now = 0;
    later.setClock([&now] { return now; });
    now += 1000;
    later.sample();
    QCOMPARE(later.rates(), QVector<qint64>(60, 0));
}

void TestConnectionGraph::theRateIsToldInWords()
{
    QVERIFY(!m_graph->accessibleName().isEmpty());
    QVERIFY(m_graph->accessibleDescription().contains(QLatin1String("Nothing")));
    second(1024 * 1024 * 3 / 2);
    const QString rate =
        QLocale().formattedDataSize(1024 * 1024 * 3 / 2, 1, QLocale::DataSizeTraditionalFormat);
    QVERIFY2(m_graph->accessibleDescription().contains(rate), qPrintable(m_graph->accessibleDescription()));
    QCOMPARE(m_graph->toolTip(), m_graph->accessibleDescription());
    second(0);
    QVERIFY(m_graph->toolTip().contains(QLatin1String("Nothing")));
}

void TestConnectionGraph::theSetColoursArePainted()
{
    for (int i = 0; i < 60; ++i)
        second(i < 30 ? 0 : 100000);
    const QImage image = m_graph->grab().toImage();
    QCOMPARE(image.pixelColor(0, image.height() / 2), QColor(200, 100, 50));
    QCOMPARE(image.pixelColor(image.width() / 4, image.height() / 2), QColor(10, 20, 30));
    QCOMPARE(image.pixelColor(image.width() * 3 / 4, image.height() / 2), QColor(90, 240, 130));
}

void TestConnectionGraph::anInvalidColourIsIgnored()
{
    ConnectionGraphWidget::setBackgroundColor(QColor());
    ConnectionGraphWidget::setBorderColor(QColor());
    ConnectionGraphWidget::setForegroundColor(QColor());
    QCOMPARE(ConnectionGraphWidget::backgroundColor(), QColor(10, 20, 30));
    QCOMPARE(ConnectionGraphWidget::borderColor(), QColor(200, 100, 50));
    QCOMPARE(ConnectionGraphWidget::foregroundColor(), QColor(90, 240, 130));
}

void TestConnectionGraph::anIdleConnectionIsAFlatLine()
{
    QVERIFY(shows(m_graph->grab().toImage(), ConnectionGraphWidget::foregroundColor()));
    const int line = heightAt(30);
    QVERIFY(line >= 1);
    QVERIFY(line <= m_graph->devicePixelRatio() * 2);
    QCOMPARE(heightAt(5), line);
    QCOMPARE(heightAt(55), line);
}

void TestConnectionGraph::aFasterFlowIsHigher()
{
    for (int i = 0; i < 60; ++i)
        second(i < 20 ? 0 : i < 40 ? 50000 : 100000);
    QVERIFY(heightAt(10) < heightAt(30));
    QVERIFY(heightAt(30) < heightAt(50));
}

void TestConnectionGraph::itLooksOnceASecondWhileItIsVisible()
{
    m_graph->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_graph.get()));
    m_meter->addNntpDown(4000);
    m_now += 1000;
    QTRY_COMPARE(m_graph->rates().constLast(), 4000);
}

void TestConnectionGraph::itDoesNotLookWhileItIsHidden()
{
    ConnectionGraphWidget visible(*m_meter);
    int looks = 0;
    visible.setClock([&looks] { return ++looks * 1000; });
    m_graph->show();
    m_graph->hide();
    visible.show();
    m_looks = 0;
    const int before = looks;
    // The visible one's seconds are the measure of the time in which the hidden one does nothing.
    QTRY_VERIFY(looks >= before + 3);
    QCOMPARE(m_looks, 0);
}

void TestConnectionGraph::anIdleConnectionPaintsNothing()
{
    PaintCounter counter;
    m_graph->installEventFilter(&counter);
    m_graph->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_graph.get()));
    QTRY_VERIFY(counter.paints > 0);
    QCoreApplication::processEvents();

    counter.paints = 0;
    for (int i = 0; i < 10; ++i) {
        second(0);
        QCoreApplication::processEvents();
    }
    QCOMPARE(counter.paints, 0);
    second(1000);
    QTRY_VERIFY(counter.paints > 0);
}

void TestConnectionGraph::hugeCountsDoNoHarm()
{
    second(std::numeric_limits<qint64>::max() / 2);
    second(-1000);
    QCOMPARE(m_graph->rates().constLast(), 0);
    QVERIFY(m_graph->rates().at(58) > 0);
    m_now = 0;
    m_graph->sample();
    QVERIFY(!m_graph->grab().isNull());
}

QTEST_MAIN(TestConnectionGraph)
#include "tst_connectiongraphwidget.moc"
