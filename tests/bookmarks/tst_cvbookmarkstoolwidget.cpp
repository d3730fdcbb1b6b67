// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkspanel.h"
#include "marking.h"

#include "bookmarks/bookmarkitemdelegate.h"
#include "bookmarks/bookmarktreeview.h"
#include "bookmarks/cvbookmarkstoolwidget.h"
#include "bookmarks/cvbookmarkstoolwidgetprivate.h"
#include "bookmarks/foldercolors.h"
#include "connector/cvconnectorplugin.h"

#include <halvora/benchmark.h>
#include <halvora/hpixmaps.h>

#include <QActionGroup>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>
#include <QMetaMethod>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>

namespace {

QStringList menuColors()
{
    return {QStringLiteral("yellow"), QStringLiteral("orange"), QStringLiteral("red"),
            QStringLiteral("gray"),   QStringLiteral("green"),  QStringLiteral("cyan"),
            QStringLiteral("brown"),  QStringLiteral("blue")};
}

QStringList texts(const QList<QAction *> &actions)
{
    QStringList list;
    for (const QAction *action : actions)
        list.append(action->text());
    return list;
}

QStringList colorTexts()
{
    return {QStringLiteral("Yellow"), QStringLiteral("Orange"), QStringLiteral("Red"),
            QStringLiteral("Gray"),   QStringLiteral("Green"),  QStringLiteral("Cyan"),
            QStringLiteral("Brown"),  QStringLiteral("Blue")};
}

QStringList plainTexts()
{
    return {QStringLiteral("Add Folder"), QStringLiteral("Delete Folder"), QStringLiteral("Add Bookmark"),
            QStringLiteral("Delete Bookmark")};
}

QStringList marked(QStringList texts)
{
    for (QString &text : texts)
        text.prepend(QStringLiteral("CVBookmarksToolWidgetPrivate~"));
    return texts;
}

QImage image(const QIcon &icon)
{
    return icon.pixmap(16, 16).toImage();
}

} // namespace

class TestCVBookmarksToolWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void theDockIsNamedAndTitled();
    void theDockCanBeClosedByItsButton();
    void theConnectorPutsTheDockAtTheLeft();
    void theDockAddsNeitherSignalsNorSlots();
    void theSlotsStandInTheirOrder();
    void theTreeFillsThePanel();
    void theTreeIsSetUpForBookmarks();
    void theTreeKeepsAWidthThatSuitsTheScreen();
    void thePanelIsAsWideAsPanelsAre();
    void thePlainActionsAreThere();
    void theColoursOfFoldersHaveTheirIcons();
    void theColoursOfBookmarksBeginWithNone();
    void nothingIsCheckedBeforeTheFirstMenu();
    void anotherLanguageReachesEveryText();
    void anotherLanguageReachesTheMenus();

private:
    QList<QAction *> plainActions() const
    {
        return m_panel->content()->findChildren<QAction *>(QString(), Qt::FindDirectChildrenOnly);
    }
    QActionGroup *group(int number) const
    {
        return m_panel->content()->findChildren<QActionGroup *>().value(number);
    }

    std::unique_ptr<BookmarksPanel> m_panel;
};

void TestCVBookmarksToolWidget::init()
{
    m_panel = std::make_unique<BookmarksPanel>();
}

void TestCVBookmarksToolWidget::cleanup()
{
    m_panel.reset();
}

void TestCVBookmarksToolWidget::theDockIsNamedAndTitled()
{
    QCOMPARE(m_panel->dock()->objectName(), QStringLiteral("CVBookmarksDock"));
    QCOMPARE(m_panel->dock()->windowTitle(), QStringLiteral("Bookmarks"));
    QCOMPARE(m_panel->dock()->toggleViewAction()->text(),
             QStringLiteral("Bookmarks")); // the base hears of it
    QVERIFY(qobject_cast<CVBookmarksToolWidgetPrivate *>(m_panel->dock()->widget()));
    QVERIFY(m_panel->view()->isVisible());
}

void TestCVBookmarksToolWidget::theDockCanBeClosedByItsButton()
{
    QVERIFY(m_panel->dock()->features().testFlag(QDockWidget::DockWidgetClosable));
}

void TestCVBookmarksToolWidget::theConnectorPutsTheDockAtTheLeft()
{
    m_panel.reset();
    const QTemporaryDir profile;
    Core core(profile.path());
    CVConnectorPlugin plugin(&core);
    MainWindow window(&core);
    core.setMainWindow(&window);
    Benchmark benchmark;
    plugin.init(benchmark);
    plugin.polish(&window);
    auto *dock = window.findChild<CVBookmarksToolWidget *>();
    QVERIFY(dock);
    QCOMPARE(window.dockWidgetArea(dock), Qt::LeftDockWidgetArea);
    QCOMPARE(dock->findChild<BookmarkTreeView *>()->model(), plugin.findChild<CVBookmarkManager *>());
}

void TestCVBookmarksToolWidget::theDockAddsNeitherSignalsNorSlots()
{
    const QMetaObject &type = CVBookmarksToolWidget::staticMetaObject;
    QCOMPARE(type.methodCount(), type.methodOffset());
}

// Other parts of the program may call them by their numbers.
void TestCVBookmarksToolWidget::theSlotsStandInTheirOrder()
{
    const QMetaObject &type = CVBookmarksToolWidgetPrivate::staticMetaObject;
    QByteArrayList signatures;
    for (int number = type.methodOffset(); number < type.methodCount(); ++number) {
        signatures.append(type.method(number).methodSignature());
        QCOMPARE(type.method(number).methodType(), QMetaMethod::Slot);
    }
    QCOMPARE(signatures,
             (QByteArrayList{"modelReset()", "addBookmarkFolder()", "deleteBookmarkFolder()",
                             "colorChanged(QAction*)", "folderColorChanged(QAction*)", "deleteBookmark()",
                             "bookmarkSelected(QModelIndex)", "showContextMenu(QPoint)",
                             "itemCollapsed(QModelIndex)", "itemExpanded(QModelIndex)"}));
}

void TestCVBookmarksToolWidget::theTreeFillsThePanel()
{
    const auto *layout = qobject_cast<QVBoxLayout *>(m_panel->content()->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->count(), 1);
    QCOMPARE(layout->stretch(0), 0);
    QCOMPARE(m_panel->view()->geometry(), m_panel->content()->rect());
}

void TestCVBookmarksToolWidget::theTreeIsSetUpForBookmarks()
{
    const BookmarkTreeView *view = m_panel->view();
    QCOMPARE(view->style(), m_panel->store().core().systemStyle());
    QVERIFY(view->testAttribute(Qt::WA_SetStyle));
    QCOMPARE(view->frameShape(), QFrame::NoFrame);
    QVERIFY(view->dragEnabled());
    QVERIFY(view->acceptDrops());
    QVERIFY(view->showDropIndicator());
    QCOMPARE(view->dragDropMode(), QAbstractItemView::DragDrop);
    QCOMPARE(view->defaultDropAction(), Qt::IgnoreAction);
    QVERIFY(view->isHeaderHidden());
    QVERIFY(view->allColumnsShowFocus());
    QVERIFY(qobject_cast<BookmarkItemDelegate *>(view->itemDelegate()));
    QCOMPARE(view->model(), &m_panel->model());
    QCOMPARE(view->editTriggers(), QAbstractItemView::DoubleClicked);
    QCOMPARE(view->selectionMode(), QAbstractItemView::ExtendedSelection);
    // The last column is as wide as the tree, until somebody asks for its own width.
    view->header()->setStretchLastSection(false);
    QCOMPARE(view->header()->sectionSize(0), 150);
}

// Runs at several scales, which make the same screen a narrow or a wide one.
void TestCVBookmarksToolWidget::theTreeKeepsAWidthThatSuitsTheScreen()
{
    const bool isWide = QGuiApplication::primaryScreen()->availableGeometry().width() > 1200;
    if (qEnvironmentVariableIsSet("PANEL_SCREEN_WIDTH"))
        QCOMPARE(QGuiApplication::primaryScreen()->availableGeometry().width(),
                 qEnvironmentVariableIntValue("PANEL_SCREEN_WIDTH"));
    QCOMPARE(m_panel->view()->minimumWidth(), isWide ? 270 : 170);
    QVERIFY(m_panel->view()->width() >= m_panel->view()->minimumWidth());
}

void TestCVBookmarksToolWidget::thePanelIsAsWideAsPanelsAre()
{
    QCOMPARE(m_panel->content()->sizeHint(), QSize(hSidebarWidth(), 200));
}

void TestCVBookmarksToolWidget::thePlainActionsAreThere()
{
    QCOMPARE(texts(plainActions()), plainTexts());
}

void TestCVBookmarksToolWidget::theColoursOfFoldersHaveTheirIcons()
{
    QCOMPARE(m_panel->content()->findChildren<QActionGroup *>().size(), 2);
    QVERIFY(group(0)->isExclusive());
    const QList<QAction *> actions = group(0)->actions();
    QCOMPARE(texts(actions), colorTexts());
    for (int number = 0; number < actions.size(); ++number) {
        const QAction *action = actions.at(number);
        const QString name = menuColors().at(number);
        QCOMPARE(action->parent(), group(0));
        QCOMPARE(action->data(), QVariant(name));
        QVERIFY(action->isCheckable());
        const QIcon icon(QStringLiteral(":/corvia/bookmarks/folder_%1.svg").arg(name));
        QVERIFY(!image(icon).isNull());
        QCOMPARE(image(action->icon()), image(icon));
    }
}

void TestCVBookmarksToolWidget::theColoursOfBookmarksBeginWithNone()
{
    QVERIFY(group(1)->isExclusive());
    QList<QAction *> actions = group(1)->actions();
    const QAction *none = actions.takeFirst();
    QCOMPARE(none->text(), QStringLiteral("None"));
    QCOMPARE(none->data().userType(), int(QMetaType::QString));
    QVERIFY(none->data().toString().isEmpty() && !none->data().toString().isNull());
    QVERIFY(none->isCheckable());
    QVERIFY(none->icon().isNull());
    QCOMPARE(none->parent(), group(1));

    QCOMPARE(texts(actions), colorTexts());
    for (int number = 0; number < actions.size(); ++number) {
        const QAction *action = actions.at(number);
        const QString name = menuColors().at(number);
        QCOMPARE(action->data(), QVariant(name));
        QVERIFY(action->isCheckable());
        QCOMPARE(image(action->icon()), image(colorSwatchIcon(colorForName(name))));
    }
}

void TestCVBookmarksToolWidget::nothingIsCheckedBeforeTheFirstMenu()
{
    QVERIFY(!group(0)->checkedAction());
    QVERIFY(!group(1)->checkedAction());
}

void TestCVBookmarksToolWidget::anotherLanguageReachesEveryText()
{
    Marking marking;
    QVERIFY(QCoreApplication::installTranslator(&marking));
    QTRY_COMPARE(m_panel->dock()->windowTitle(), QStringLiteral("CVBookmarksToolWidget~Bookmarks"));
    QTRY_COMPARE(texts(plainActions()), marked(plainTexts()));
    QCOMPARE(texts(group(0)->actions()), marked(colorTexts()));
    QCOMPARE(texts(group(1)->actions()), marked(QStringList{QStringLiteral("None")} + colorTexts()));
    QCoreApplication::removeTranslator(&marking);
    QTRY_COMPARE(m_panel->dock()->windowTitle(), QStringLiteral("Bookmarks"));
    QTRY_COMPARE(texts(plainActions()), plainTexts());
    QCOMPARE(texts(group(0)->actions()), colorTexts());
    QCOMPARE(texts(group(1)->actions()), QStringList{QStringLiteral("None")} + colorTexts());
}

void TestCVBookmarksToolWidget::anotherLanguageReachesTheMenus()
{
    const QModelIndex folder = m_panel->addFolder("f", "a");
    Marking marking;
    QVERIFY(QCoreApplication::installTranslator(&marking));
    QTRY_COMPARE(texts(plainActions()), marked(plainTexts()));
    QVERIFY(m_panel->menuTexts(folder).contains(QStringLiteral("CVBookmarksToolWidgetPrivate~Folder Color")));
    QVERIFY(m_panel->menuTexts(m_panel->at({0, 0}))
                .contains(QStringLiteral("CVBookmarksToolWidgetPrivate~Color")));
    QCoreApplication::removeTranslator(&marking);
}

QTEST_MAIN(TestCVBookmarksToolWidget)
#include "tst_cvbookmarkstoolwidget.moc"
