// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/core.h>
#include <halvora/fancydockwidget.h>
#include <halvora/mainwindow.h>

#include <QAction>
#include <QMenu>
#include <QtTest>

class TestViewMenu : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void everyPanelHasAnEntryInTheOrderOfAdding();
    void theEntryHidesAndShowsThePanel_data();
    void theEntryHidesAndShowsThePanel();
    void theEntryFollowsThePanel();
    void theEntryFollowsTheCloseButton();
    void theEntryStaysCheckedBehindATab();
    void showingAPanelBringsItInFrontOfItsTabs();
    void theEntryIsUnchangedWhenTheWindowHides();
    void theEntryFollowsTheTitle();
    void anAmpersandInATitleIsNoShortcut();
    void aPanelHiddenBeforeItWasAddedStaysHidden();
    void aPanelAddedToAVisibleWindowIsSeen();
    void theEntryGoesWithThePanel();
    void addingTwiceGivesOneEntry();
    void anUnknownAreaIsTheLeftOne();
    void nothingIsNoPanel();
    void panelsWithoutAnObjectNameGetOneEach();
    void thePopupMenuHasTheSameEntries();
    void theLayoutIsResetToTheFirst();

private:
    QMenu *menu() const { return m_window->findChild<QMenu *>(QStringLiteral("halvora.viewMenu")); }
    QList<QAction *> entries() const;
    FancyDockWidget *add(const QString &title, Qt::DockWidgetArea area = Qt::LeftDockWidgetArea);

    QTemporaryDir m_profile;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<MainWindow> m_window;
};

void TestViewMenu::init()
{
    m_window.reset();
    m_core = std::make_unique<Core>(m_profile.path());
    m_window = std::make_unique<MainWindow>(m_core.get());
    m_window->setCentralWidget(new QWidget);
}

QList<QAction *> TestViewMenu::entries() const
{
    QList<QAction *> list;
    const auto actions = menu()->actions();
    for (QAction *action : actions) {
        if (action->isCheckable())
            list.append(action);
    }
    return list;
}

FancyDockWidget *TestViewMenu::add(const QString &title, Qt::DockWidgetArea area)
{
    auto *dock = new FancyDockWidget;
    dock->setWindowTitle(title);
    dock->setObjectName(title);
    dock->setWidget(new QWidget);
    m_window->addToolWidget(area, dock);
    return dock;
}

void TestViewMenu::everyPanelHasAnEntryInTheOrderOfAdding()
{
    QVERIFY(entries().isEmpty());
    add(QStringLiteral("One"));
    add(QStringLiteral("Two"), Qt::BottomDockWidgetArea);
    QCOMPARE(entries().size(), 2);
    QCOMPARE(entries().at(0)->text(), QStringLiteral("One"));
    QCOMPARE(entries().at(1)->text(), QStringLiteral("Two"));
    QVERIFY(entries().at(0)->isChecked());
}

void TestViewMenu::theEntryHidesAndShowsThePanel_data()
{
    QTest::addColumn<int>("features");
    QTest::newRow("closable") << int(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    QTest::newRow("not closable") << int(QDockWidget::DockWidgetMovable);
    QTest::newRow("fixed") << int(QDockWidget::NoDockWidgetFeatures);
}

void TestViewMenu::theEntryHidesAndShowsThePanel()
{
    QFETCH(int, features);
    FancyDockWidget *dock = add(QStringLiteral("One"));
    dock->setFeatures(QDockWidget::DockWidgetFeatures(features));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QVERIFY(entries().constFirst()->isEnabled());
    entries().constFirst()->trigger();
    QVERIFY(!dock->isVisible());
    QVERIFY(!entries().constFirst()->isChecked());
    entries().constFirst()->trigger();
    QVERIFY(dock->isVisible());
    QVERIFY(entries().constFirst()->isChecked());
}

void TestViewMenu::theEntryFollowsThePanel()
{
    FancyDockWidget *dock = add(QStringLiteral("One"));
    dock->hide();
    QVERIFY(!entries().constFirst()->isChecked());
    m_window->show();
    QVERIFY(!entries().constFirst()->isChecked());
    dock->show();
    QVERIFY(entries().constFirst()->isChecked());
}

void TestViewMenu::theEntryFollowsTheCloseButton()
{
    FancyDockWidget *dock = add(QStringLiteral("One"));
    m_window->show();
    dock->setFloating(true);
    QVERIFY(entries().constFirst()->isChecked());
    dock->close();
    QVERIFY(!entries().constFirst()->isChecked());
}

void TestViewMenu::theEntryStaysCheckedBehindATab()
{
    FancyDockWidget *one = add(QStringLiteral("One"));
    FancyDockWidget *two = add(QStringLiteral("Two"));
    m_window->tabifyDockWidget(one, two);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    two->raise();
    QVERIFY(entries().at(0)->isChecked());
    QVERIFY(entries().at(1)->isChecked());
}

void TestViewMenu::showingAPanelBringsItInFrontOfItsTabs()
{
    FancyDockWidget *one = add(QStringLiteral("One"));
    FancyDockWidget *two = add(QStringLiteral("Two"));
    m_window->tabifyDockWidget(one, two);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    entries().at(0)->trigger();
    QVERIFY(one->isHidden());
    entries().at(0)->trigger();
    QTRY_VERIFY(!one->visibleRegion().isEmpty());
    QTRY_VERIFY(two->visibleRegion().isEmpty());
}

void TestViewMenu::theEntryIsUnchangedWhenTheWindowHides()
{
    add(QStringLiteral("One"));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_window->hide();
    QVERIFY(entries().constFirst()->isChecked());
}

void TestViewMenu::theEntryFollowsTheTitle()
{
    FancyDockWidget *dock = add(QStringLiteral("One"));
    dock->setWindowTitle(QStringLiteral("Lesezeichen"));
    QCOMPARE(entries().constFirst()->text(), QStringLiteral("Lesezeichen"));
}

void TestViewMenu::anAmpersandInATitleIsNoShortcut()
{
    add(QStringLiteral("Bookmarks & Groups"));
    QCOMPARE(entries().constFirst()->text(), QStringLiteral("Bookmarks && Groups"));
}

void TestViewMenu::aPanelHiddenBeforeItWasAddedStaysHidden()
{
    auto *dock = new FancyDockWidget;
    dock->hide();
    m_window->addToolWidget(Qt::LeftDockWidgetArea, dock);
    m_window->show();
    QVERIFY(dock->isHidden());
    QVERIFY(!entries().constFirst()->isChecked());
}

void TestViewMenu::aPanelAddedToAVisibleWindowIsSeen()
{
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    const FancyDockWidget *dock = add(QStringLiteral("One"));
    QTRY_VERIFY(dock->isVisible());
    QVERIFY(entries().constFirst()->isChecked());
}

void TestViewMenu::theEntryGoesWithThePanel()
{
    FancyDockWidget *one = add(QStringLiteral("One"));
    add(QStringLiteral("Two"));
    delete one;
    QCOMPARE(entries().size(), 1);
    QCOMPARE(entries().constFirst()->text(), QStringLiteral("Two"));
}

void TestViewMenu::addingTwiceGivesOneEntry()
{
    FancyDockWidget *dock = add(QStringLiteral("One"));
    m_window->addToolWidget(Qt::RightDockWidgetArea, dock);
    QCOMPARE(entries().size(), 1);
    QCOMPARE(m_window->dockWidgetArea(dock), Qt::RightDockWidgetArea);
}

void TestViewMenu::anUnknownAreaIsTheLeftOne()
{
    QCOMPARE(m_window->dockWidgetArea(add(QStringLiteral("One"), Qt::NoDockWidgetArea)),
             Qt::LeftDockWidgetArea);
    QCOMPARE(m_window->dockWidgetArea(add(QStringLiteral("Two"), Qt::AllDockWidgetAreas)),
             Qt::LeftDockWidgetArea);
}

void TestViewMenu::nothingIsNoPanel()
{
    m_window->addToolWidget(Qt::LeftDockWidgetArea, nullptr);
    QVERIFY(entries().isEmpty());
}

void TestViewMenu::panelsWithoutAnObjectNameGetOneEach()
{
    auto *one = new FancyDockWidget;
    auto *two = new QDockWidget;
    m_window->addToolWidget(Qt::LeftDockWidgetArea, one);
    m_window->addToolWidget(Qt::LeftDockWidgetArea, two);
    QVERIFY(!one->objectName().isEmpty());
    QVERIFY(!two->objectName().isEmpty());
    QVERIFY(one->objectName() != two->objectName());
}

void TestViewMenu::thePopupMenuHasTheSameEntries()
{
    add(QStringLiteral("One"));
    add(QStringLiteral("Two"));
    const std::unique_ptr<QMenu> popup(m_window->createPopupMenu());
    QCOMPARE(popup->actions(), entries());
}

void TestViewMenu::theLayoutIsResetToTheFirst()
{
    FancyDockWidget *one = add(QStringLiteral("One"));
    FancyDockWidget *two = add(QStringLiteral("Two"), Qt::BottomDockWidgetArea);
    m_window->restoreLayout();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    one->hide();
    m_window->addDockWidget(Qt::RightDockWidgetArea, two);
    two->setFloating(true);

    menu()->findChild<QAction *>(QStringLiteral("halvora.resetLayout"))->trigger();
    QVERIFY(one->isVisible());
    QVERIFY(entries().constFirst()->isChecked());
    QVERIFY(!two->isFloating());
    QCOMPARE(m_window->dockWidgetArea(two), Qt::BottomDockWidgetArea);
}

QTEST_MAIN(TestViewMenu)
#include "tst_viewmenu.moc"
