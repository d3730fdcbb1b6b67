// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/core.h>
#include <halvora/fancydockwidget.h>
#include <halvora/hpixmaps.h>
#include <halvora/mainwindow.h>

#include <QRandomGenerator>
#include <QScreen>
#include <QSettings>
#include <QtTest>

namespace {

const QString geometryKey = QStringLiteral("MainWindow/Geometry");
const QString stateKey = QStringLiteral("MainWindow/State");

// One run of the program.
struct Run {
    explicit Run(const QString &profile)
        : core(profile)
        , window(&core)
        , side(new FancyDockWidget)
        , lower(new FancyDockWidget)
    {
        window.setCentralWidget(new QWidget);
        side->setObjectName(QStringLiteral("side"));
        side->setWidget(new QWidget);
        lower->setObjectName(QStringLiteral("lower"));
        lower->setWidget(new QWidget);
        window.addToolWidget(Qt::LeftDockWidgetArea, side);
        window.addToolWidget(Qt::BottomDockWidgetArea, lower);
    }

    void start()
    {
        window.restoreLayout();
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
    }

    Core core;
    MainWindow window;
    FancyDockWidget *side;
    FancyDockWidget *lower;
};

} // namespace

class TestWindowLayout : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void theFirstStartHasPanelsOfTheUsualSize();
    void theLayoutSurvivesARestart();
    void closingSavesBeforeItTells();
    void aPanelThatWasNotThereLastTimeAppears();
    void aPanelThatIsNoLongerThereDoesNoHarm();
    void rubbishFallsBackToTheDefaults_data();
    void rubbishFallsBackToTheDefaults();
    void damagedBytesDoNoHarm();
    void aWindowOffTheScreenComesBack_data();
    void aWindowOffTheScreenComesBack();
    void aNoticeIsNeitherHiddenNorShownByTheSavedLayout();

private:
    std::unique_ptr<QTemporaryDir> m_profile;
};

void TestWindowLayout::init()
{
    m_profile = std::make_unique<QTemporaryDir>();
}

void TestWindowLayout::theFirstStartHasPanelsOfTheUsualSize()
{
    Run run(m_profile->path());
    run.start();
    QTRY_COMPARE(run.side->width(), hSidebarWidth());
    QTRY_COMPARE(run.lower->height(), hDockWidgetHeight());
    QVERIFY(run.side->isVisible());
    QVERIFY(run.window.screen()->availableGeometry().contains(run.window.geometry()));
}

void TestWindowLayout::theLayoutSurvivesARestart()
{
    QRect place;
    {
        Run run(m_profile->path());
        run.start();
        run.window.setGeometry(40, 50, 640, 480);
        run.side->hide();
        run.window.addDockWidget(Qt::RightDockWidgetArea, run.lower);
        run.window.resizeDocks({run.lower}, {301}, Qt::Horizontal);
        QTRY_COMPARE(run.lower->width(), 301);
        place = run.window.geometry();
        QVERIFY(run.window.close());
    }
    Run run(m_profile->path());
    run.start();
    QTRY_COMPARE(run.window.geometry(), place);
    QVERIFY(run.side->isHidden());
    QCOMPARE(run.window.dockWidgetArea(run.lower), Qt::RightDockWidgetArea);
    QTRY_COMPARE(run.lower->width(), 301);
}

void TestWindowLayout::closingSavesBeforeItTells()
{
    Run run(m_profile->path());
    run.start();
    QByteArray seen;
    connect(&run.window, &MainWindow::closing, &run.window,
            [&] { seen = run.core.settings().value(stateKey).toByteArray(); });
    QVERIFY(run.window.close());
    QVERIFY(!seen.isEmpty());
}

void TestWindowLayout::aPanelThatWasNotThereLastTimeAppears()
{
    {
        Run run(m_profile->path());
        run.start();
        run.window.close();
    }
    Run run(m_profile->path());
    auto *fresh = new FancyDockWidget;
    fresh->setObjectName(QStringLiteral("fresh"));
    run.window.addToolWidget(Qt::RightDockWidgetArea, fresh);
    run.start();
    QVERIFY(fresh->isVisible());
    QCOMPARE(run.window.dockWidgetArea(fresh), Qt::RightDockWidgetArea);
}

void TestWindowLayout::aPanelThatIsNoLongerThereDoesNoHarm()
{
    {
        Run run(m_profile->path());
        auto *gone = new FancyDockWidget;
        gone->setObjectName(QStringLiteral("gone"));
        run.window.addToolWidget(Qt::RightDockWidgetArea, gone);
        run.start();
        run.side->hide();
        run.window.close();
    }
    Run run(m_profile->path());
    run.start();
    QVERIFY(run.side->isHidden());
    QVERIFY(run.lower->isVisible());
}

void TestWindowLayout::rubbishFallsBackToTheDefaults_data()
{
    QTest::addColumn<QVariant>("rubbish");
    QTest::newRow("empty") << QVariant(QByteArray());
    QTest::newRow("text") << QVariant(QStringLiteral("left, please"));
    QTest::newRow("a number") << QVariant(7);
    QTest::newRow("a list") << QVariant(QStringList{QStringLiteral("a"), QStringLiteral("b")});
    QTest::newRow("zeros") << QVariant(QByteArray(200, '\0'));
    QTest::newRow("ones") << QVariant(QByteArray(200, '\xff'));
    QTest::newRow("much of it") << QVariant(QByteArray(1 << 14, '\x01'));
}

void TestWindowLayout::rubbishFallsBackToTheDefaults()
{
    QFETCH(QVariant, rubbish);
    Run run(m_profile->path());
    run.core.settings().setValue(geometryKey, rubbish);
    run.core.settings().setValue(stateKey, rubbish);
    run.start();
    QTRY_COMPARE(run.side->width(), hSidebarWidth());
    QVERIFY(run.lower->isVisible());
    QVERIFY(run.window.screen()->availableGeometry().contains(run.window.geometry()));
}

void TestWindowLayout::damagedBytesDoNoHarm()
{
    Run run(m_profile->path());
    run.start();
    run.lower->setFloating(true);
    run.window.close();
    const QByteArray state = run.core.settings().value(stateKey).toByteArray();
    const QByteArray geometry = run.core.settings().value(geometryKey).toByteArray();
    QVERIFY(!state.isEmpty());

    QRandomGenerator random(20260101);
    const auto damaged = [&random](QByteArray bytes) {
        for (int i = 0; i < 3; ++i)
            bytes[random.bounded(bytes.size())] = char(random.bounded(256));
        return random.bounded(4) == 0 ? bytes.left(random.bounded(bytes.size())) : bytes;
    };
    run.window.show();
    for (int i = 0; i < 300; ++i) {
        run.core.settings().setValue(geometryKey, damaged(geometry));
        run.core.settings().setValue(stateKey, damaged(state));
        run.window.restoreLayout();
        QVERIFY(run.window.screen()->availableGeometry().intersects(run.window.geometry()));
        if (i % 20 == 0)
            QCoreApplication::processEvents();
    }
}

void TestWindowLayout::aWindowOffTheScreenComesBack_data()
{
    QTest::addColumn<QRect>("place");
    QTest::newRow("right") << QRect(9000, 100, 500, 400);
    QTest::newRow("left") << QRect(-9000, 100, 500, 400);
    QTest::newRow("below") << QRect(100, 9000, 500, 400);
    QTest::newRow("above") << QRect(100, -9000, 500, 400);
    QTest::newRow("all but a corner") << QRect(-480, -385, 500, 400);
    QTest::newRow("larger than any screen") << QRect(-100, -100, 3000, 2000);
}

void TestWindowLayout::aWindowOffTheScreenComesBack()
{
    QFETCH(QRect, place);
    {
        Run run(m_profile->path());
        run.start();
        run.window.setGeometry(place);
        run.window.close();
    }
    Run run(m_profile->path());
    run.start();
    const QRect screen = run.window.screen()->availableGeometry();
    const QRect seen = screen & QRect(run.window.pos(), QSize(run.window.width(), 30));
    QVERIFY(seen.width() >= 100 && seen.height() >= 20);
    QVERIFY(run.window.width() <= screen.width());
}

void TestWindowLayout::aNoticeIsNeitherHiddenNorShownByTheSavedLayout()
{
    const auto notice = [](const Run &run) {
        return run.window.findChild<QWidget *>(QStringLiteral("halvora.updateNotice"));
    };
    {
        Run run(m_profile->path());
        run.start();
        Q_EMIT run.core.softwareUpdateOffered({QStringLiteral("2"), QString(), QString()});
        QVERIFY(notice(run)->isVisible());
        run.window.close();
    }
    {
        Run run(m_profile->path());
        run.start();
        QVERIFY(!notice(run)->isVisible());
        run.window.close();
    }
    Run run(m_profile->path());
    Q_EMIT run.core.softwareUpdateOffered({QStringLiteral("2"), QString(), QString()});
    run.start();
    QVERIFY(notice(run)->isVisible());
}

QTEST_MAIN(TestWindowLayout)
#include "tst_windowlayout.moc"
