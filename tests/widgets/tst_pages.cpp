// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/core.h>
#include <halvora/fancydockwidget.h>
#include <halvora/mainwindow.h>

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QtTest>

/// The middle of the window, and the panel in which newsgroups are chosen.
class TestPages : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void withOnlyTheHomePageThereAreNoTabs();
    void aPageIsOpenedInFront();
    void aPageThatIsThereComesToTheFront();
    void theTabFollowsTheTitle();
    void aTitleWithMarkupIsShownAsItIs();
    void closingDestroysAPageAndOnlyAPage();
    void theKeyOfTheSystemClosesThePageInFront();
    void pagesAreFoundByName();
    void anotherHomePageTakesThePlaceOfTheOneBefore();
    void theNewsgroupsPanelStandsAtTheRightAndInTheViewMenu();
    void showingTheNewsgroupsPanelBringsItBackAndGivesItTheKeys();
    void withoutANewsgroupsPanelShowingItDoesNothing();
    void theSystemStyleIsTheApplications();

private:
    QWidget *open(const char *name);
    QWidget *closeButton(int index);
    QTabWidget *tabs() { return m_window->findChild<QTabWidget *>(QStringLiteral("halvora.pages")); }

    std::unique_ptr<QTemporaryDir> m_profile;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<MainWindow> m_window;
    QPointer<QWidget> m_home;
};

void TestPages::init()
{
    m_profile = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<Core>(m_profile->path());
    m_window = std::make_unique<MainWindow>(m_core.get());
    m_home = new QWidget;
    m_window->setHomePage(m_home);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void TestPages::cleanup()
{
    m_window.reset();
    m_core.reset();
    m_profile.reset();
}

QWidget *TestPages::open(const char *name)
{
    auto *page = new QWidget;
    page->setObjectName(QLatin1String(name));
    page->setWindowTitle(QLatin1String(name));
    m_window->openPage(page);
    return page;
}

QWidget *TestPages::closeButton(int index)
{
    QWidget *right = tabs()->tabBar()->tabButton(index, QTabBar::RightSide);
    return right ? right : tabs()->tabBar()->tabButton(index, QTabBar::LeftSide);
}

void TestPages::withOnlyTheHomePageThereAreNoTabs()
{
    QVERIFY(m_home->isVisible());
    QVERIFY(!tabs()->tabBar()->isVisible());
    open("one");
    QVERIFY(tabs()->tabBar()->isVisible());
}

void TestPages::aPageIsOpenedInFront()
{
    const QWidget *one = open("one");
    QVERIFY(one->isVisible());
    QVERIFY(!m_home->isVisible());
    const QWidget *two = open("two");
    QVERIFY(two->isVisible());
    QVERIFY(!one->isVisible());
}

void TestPages::aPageThatIsThereComesToTheFront()
{
    QWidget *one = open("one");
    open("two");
    m_window->openPage(one);
    QVERIFY(one->isVisible());
    QCOMPARE(tabs()->count(), 3);
}

void TestPages::theTabFollowsTheTitle()
{
    QWidget *one = open("one");
    one->setWindowTitle(QStringLiteral("Rock & Roll"));
    QCOMPARE(tabs()->tabText(1), QStringLiteral("Rock && Roll"));
    tabs()->removeTab(1);
    one->setWindowTitle(QStringLiteral("gone"));
    QCOMPARE(tabs()->tabText(0), QStringLiteral("Home"));
    delete one;
}

void TestPages::aTitleWithMarkupIsShownAsItIs()
{
    const QString title = QStringLiteral("<table><b>");
    open("one")->setWindowTitle(title);
    QCOMPARE(tabs()->tabText(1), title);
    QTextDocument document;
    document.setHtml(tabs()->tabToolTip(1));
    QCOMPARE(document.toPlainText(), title);
}

void TestPages::closingDestroysAPageAndOnlyAPage()
{
    const QPointer<QWidget> one = open("one");
    const QPointer<QWidget> two = open("two");
    QVERIFY(!closeButton(0));
    QTest::mouseClick(closeButton(1), Qt::LeftButton);
    QTRY_VERIFY(!one);
    QVERIFY(two->isVisible());
    QCOMPARE(tabs()->count(), 2);
}

void TestPages::theKeyOfTheSystemClosesThePageInFront()
{
    const QPointer<QWidget> one = open("one");
    QTest::keySequence(m_window.get(), QKeySequence(QKeySequence::Close));
    QTRY_VERIFY(!one);
    QTest::keySequence(m_window.get(), QKeySequence(QKeySequence::Close));
    QVERIFY(m_home && m_window->isVisible());
}

void TestPages::pagesAreFoundByName()
{
    const QWidget *one = open("one");
    QCOMPARE(m_window->findPage(QStringLiteral("one")), one);
    QVERIFY(!m_window->findPage(QStringLiteral("two")));
}

void TestPages::anotherHomePageTakesThePlaceOfTheOneBefore()
{
    open("one");
    auto *other = new QWidget;
    m_window->setHomePage(other);
    QVERIFY(!m_home);
    QVERIFY(other->isVisible());
    QCOMPARE(tabs()->count(), 2);
    QCOMPARE(tabs()->widget(0), other);
}

void TestPages::theNewsgroupsPanelStandsAtTheRightAndInTheViewMenu()
{
    auto *panel = new FancyDockWidget;
    panel->setWindowTitle(QStringLiteral("Newsgroups"));
    m_window->setNewsgroupsPanel(panel);
    QCOMPARE(m_window->dockWidgetArea(panel), Qt::RightDockWidgetArea);
    const std::unique_ptr<QMenu> menu(m_window->createPopupMenu());
    QCOMPARE(menu->actions().constFirst()->text(), panel->windowTitle());
}

void TestPages::showingTheNewsgroupsPanelBringsItBackAndGivesItTheKeys()
{
    auto *panel = new FancyDockWidget;
    auto *field = new QLineEdit;
    panel->setWidget(field);
    panel->setFocusProxy(field);
    m_window->setNewsgroupsPanel(panel);
    panel->hide();
    m_window->showNewsgroupsPanel();
    QVERIFY(panel->isVisible());
    QCOMPARE(m_window->focusWidget(), field);
}

void TestPages::withoutANewsgroupsPanelShowingItDoesNothing()
{
    m_window->showNewsgroupsPanel();
    auto *panel = new FancyDockWidget;
    m_window->setNewsgroupsPanel(panel);
    delete panel;
    m_window->showNewsgroupsPanel();
    m_window->setNewsgroupsPanel(nullptr);
    m_window->showNewsgroupsPanel();
}

void TestPages::theSystemStyleIsTheApplications()
{
    QCOMPARE(m_core->systemStyle(), QApplication::style());
}

QTEST_MAIN(TestPages)
#include "tst_pages.moc"
