// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/fancydockwidget.h>
#include <halvora/stylehelper.h>

#include <QAbstractButton>
#include <QAction>
#include <QMainWindow>
#include <QtTest>

class TestFancyDock : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { StyleHelper::setBaseColor(QColor()); }
    void theTitleIsPaintedOnTheBaseColour();
    void aNewBaseColourIsSeenAtOnce();
    void theTitleFollowsTheWindowTitle();
    void aTitleThatDoesNotFitIsCutOffAndToldByTheToolTip();
    void markupInATitleIsText();
    void theButtonsFollowTheFeatures_data();
    void theButtonsFollowTheFeatures();
    void theButtonsFloatAndClose();
    void theButtonsSayWhatTheyDo();
    void theButtonsAreReachedByTheKeyboard();
    void aDoubleClickOnTheTitleFloats();
    void theTitleCanBeDragged();
    void subclassesHearOfChanges();

private:
    QWidget *title() const { return m_dock->titleBarWidget(); }
    QAbstractButton *button(const char *name) const
    {
        return title()->findChild<QAbstractButton *>(QLatin1String(name));
    }

    std::unique_ptr<QMainWindow> m_window;
    FancyDockWidget *m_dock = nullptr;
};

void TestFancyDock::init()
{
    m_window = std::make_unique<QMainWindow>();
    m_window->setCentralWidget(new QWidget);
    m_dock = new FancyDockWidget;
    m_dock->setWindowTitle(QStringLiteral("Bookmarks"));
    m_dock->setWidget(new QWidget);
    m_window->addDockWidget(Qt::LeftDockWidgetArea, m_dock);
    m_window->resize(600, 400);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_window->resizeDocks({m_dock}, {220}, Qt::Horizontal);
    QTRY_COMPARE(title()->width(), 220);
}

void TestFancyDock::theTitleIsPaintedOnTheBaseColour()
{
    const QImage image = title()->grab().toImage();
    QCOMPARE(image.pixelColor(1, 1), StyleHelper::baseColor());
    const auto lit = [&image] {
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width() / 2; ++x)
                count += StyleHelper::contrast(image.pixelColor(x, y), StyleHelper::baseColor()) >= 4.5;
        }
        return count;
    };
    QVERIFY(lit() > 20);
}

void TestFancyDock::aNewBaseColourIsSeenAtOnce()
{
    StyleHelper::setBaseColor(QColor(0xff, 0xee, 0x88));
    QTRY_COMPARE(title()->grab().toImage().pixelColor(1, 1), QColor(0xff, 0xee, 0x88));
}

void TestFancyDock::theTitleFollowsTheWindowTitle()
{
    const QImage before = title()->grab().toImage();
    QCOMPARE(title()->accessibleName(), QStringLiteral("Bookmarks"));
    m_dock->setWindowTitle(QStringLiteral("Usage"));
    QCOMPARE(title()->accessibleName(), QStringLiteral("Usage"));
    QVERIFY(title()->grab().toImage() != before);
    QCOMPARE(m_dock->toggleViewAction()->text(), QStringLiteral("Usage"));
}

void TestFancyDock::aTitleThatDoesNotFitIsCutOffAndToldByTheToolTip()
{
    QCOMPARE(title()->toolTip(), QString());
    const QString name = QStringLiteral("A title of so many words that no side bar is wide enough for it");
    m_dock->setWindowTitle(name);
    QVERIFY(title()->toolTip().contains(name));
    QVERIFY(title()->width() < 400);
    QVERIFY(title()->minimumSizeHint().width() < 150);
}

void TestFancyDock::markupInATitleIsText()
{
    m_dock->setWindowTitle(
        QStringLiteral("<img src=\"file:///etc/hostname\"> and a long rest that is cut off"));
    QVERIFY(title()->toolTip().contains(QLatin1String("&lt;img")));
    QVERIFY(!title()->toolTip().contains(QLatin1String("<img")));
    QVERIFY(!button("halvora.dockClose")->toolTip().contains(QLatin1String("<img")));
}

void TestFancyDock::theButtonsFollowTheFeatures_data()
{
    QTest::addColumn<int>("features");
    QTest::addColumn<bool>("floats");
    QTest::addColumn<bool>("closes");
    QTest::newRow("none") << int(QDockWidget::NoDockWidgetFeatures) << false << false;
    QTest::newRow("movable") << int(QDockWidget::DockWidgetMovable) << false << false;
    QTest::newRow("closable") << int(QDockWidget::DockWidgetClosable) << false << true;
    QTest::newRow("floatable") << int(QDockWidget::DockWidgetFloatable) << true << false;
    QTest::newRow("both") << int(QDockWidget::DockWidgetFloatable | QDockWidget::DockWidgetClosable) << true
                          << true;
}

void TestFancyDock::theButtonsFollowTheFeatures()
{
    QFETCH(int, features);
    QVERIFY(button("halvora.dockFloat")->isVisible());
    QVERIFY(button("halvora.dockClose")->isVisible());
    m_dock->setFeatures(QDockWidget::DockWidgetFeatures(features));
    QTEST(button("halvora.dockFloat")->isVisible(), "floats");
    QTEST(button("halvora.dockClose")->isVisible(), "closes");
}

void TestFancyDock::theButtonsFloatAndClose()
{
    QTest::mouseClick(button("halvora.dockFloat"), Qt::LeftButton);
    QVERIFY(m_dock->isFloating());
    QCOMPARE(m_dock->titleBarWidget()->isVisible(), true);
    QTest::mouseClick(button("halvora.dockFloat"), Qt::LeftButton);
    QVERIFY(!m_dock->isFloating());
    QTest::mouseClick(button("halvora.dockClose"), Qt::LeftButton);
    QVERIFY(m_dock->isHidden());
}

void TestFancyDock::theButtonsSayWhatTheyDo()
{
    QCOMPARE(button("halvora.dockClose")->accessibleName(), QStringLiteral("Close Bookmarks"));
    QCOMPARE(button("halvora.dockFloat")->accessibleName(), QStringLiteral("Float Bookmarks"));
    m_dock->setFloating(true);
    QCOMPARE(button("halvora.dockFloat")->accessibleName(), QStringLiteral("Dock Bookmarks"));
}

void TestFancyDock::theButtonsAreReachedByTheKeyboard()
{
    QAbstractButton *close = button("halvora.dockClose");
    QVERIFY(close->focusPolicy() & Qt::TabFocus);
    QApplication::setActiveWindow(m_window.get());
    close->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(close->hasFocus());
    QTest::keyClick(close, Qt::Key_Space);
    QVERIFY(m_dock->isHidden());
}

void TestFancyDock::aDoubleClickOnTheTitleFloats()
{
    QTest::mouseDClick(title(), Qt::LeftButton, Qt::NoModifier, QPoint(30, title()->height() / 2));
    QTRY_VERIFY(m_dock->isFloating());
}

void TestFancyDock::theTitleCanBeDragged()
{
    const QPoint from(30, title()->height() / 2);
    QTest::mousePress(title(), Qt::LeftButton, Qt::NoModifier, from);
    for (int step = 1; step <= 6; ++step) {
        const QPoint to = from + QPoint(40 * step, 30 * step);
        QMouseEvent move(QEvent::MouseMove, to, title()->mapToGlobal(to), Qt::LeftButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(title(), &move);
    }
    QVERIFY(m_dock->isFloating());
    QTest::mouseRelease(title(), Qt::LeftButton, Qt::NoModifier, from);
}

void TestFancyDock::subclassesHearOfChanges()
{
    class Panel : public FancyDockWidget {
    public:
        int languages = 0;

    protected:
        void changeEvent(QEvent *event) override
        {
            languages += event->type() == QEvent::LanguageChange;
            FancyDockWidget::changeEvent(event);
        }
    };
    auto *panel = new Panel;
    m_window->addDockWidget(Qt::RightDockWidgetArea, panel);
    QEvent change(QEvent::LanguageChange);
    QApplication::sendEvent(m_window.get(), &change);
    QCOMPARE(panel->languages, 1);
}

QTEST_MAIN(TestFancyDock)
#include "tst_fancydockwidget.moc"
