// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/bookmarktreeview.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QStringListModel>
#include <QTest>

#include <memory>

class TestBookmarkTreeView : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aRightClickLeavesCurrentRowAndSelection_data();
    void aRightClickLeavesCurrentRowAndSelection();
    void aRightClickOpensNoEditorAndNoRow();
    void aRightClickAsksForOneMenuAtThePointer();
    void aRightPressIsIgnoredWithTheLeftButtonDown();
    void aLeftPressCountsWithTheRightButtonDown();
    void otherButtonsChooseARowAsInAnyTree_data();
    void otherButtonsChooseARowAsInAnyTree();
    void theMenuKeyMeansTheRowUnderThePointer();
    void aMenuIsAskedForAtThePointerWhateverTheEventSays();
    void thePolicyOfMenusIsTheUsualOne();
    void theTreeAddsNeitherSignalsNorSlots();

private:
    /// Of a row in the viewport, or of the place below all rows for -1.
    QPoint middle(int row) const
    {
        return row < 0 ? m_view->viewport()->rect().bottomLeft() + QPoint(20, -20)
                       : m_view->visualRect(m_rows.index(row)).center();
    }
    void pointAt(int row) const { QCursor::setPos(m_view->viewport()->mapToGlobal(middle(row))); }
    /// The row of the only menu that was asked for; -1 when there was not one.
    int rowOf(const QSignalSpy &menus) const;
    void rightClick(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Presses @p button while the other one of left and right is down.
    void pressAsSecond(Qt::MouseButton button, int row);

    QStringListModel m_rows;
    std::unique_ptr<BookmarkTreeView> m_view;
};

void TestBookmarkTreeView::init()
{
    m_rows.setStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d"),
                          QStringLiteral("e")});
    m_view = std::make_unique<BookmarkTreeView>();
    m_view->setModel(&m_rows);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->resize(300, 300);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    m_view->setCurrentIndex(m_rows.index(0));
    m_view->selectionModel()->select(m_rows.index(1), QItemSelectionModel::Select);
}

void TestBookmarkTreeView::cleanup()
{
    m_view.reset();
}

int TestBookmarkTreeView::rowOf(const QSignalSpy &menus) const
{
    return menus.count() == 1 ? m_view->indexAt(menus.constFirst().constFirst().toPoint()).row() : -1;
}

// By way of the window, which is where a press becomes a wish for a menu, too.
void TestBookmarkTreeView::rightClick(int row, Qt::KeyboardModifiers modifiers)
{
    pointAt(row);
    QTest::mouseClick(m_view->windowHandle(), Qt::RightButton, modifiers,
                      m_view->viewport()->mapTo(m_view.get(), middle(row)));
}

void TestBookmarkTreeView::pressAsSecond(Qt::MouseButton button, int row)
{
    QMouseEvent press(QEvent::MouseButtonPress, middle(row), m_view->viewport()->mapToGlobal(middle(row)),
                      button, Qt::LeftButton | Qt::RightButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_view->viewport(), &press);
}

void TestBookmarkTreeView::aRightClickLeavesCurrentRowAndSelection_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("a row that is not selected") << 3 << int(Qt::NoModifier);
    QTest::newRow("a selected row") << 1 << int(Qt::NoModifier);
    QTest::newRow("the current row") << 0 << int(Qt::NoModifier);
    QTest::newRow("below the rows") << -1 << int(Qt::NoModifier);
    QTest::newRow("with Ctrl") << 3 << int(Qt::ControlModifier);
    QTest::newRow("with Shift") << 3 << int(Qt::ShiftModifier);
}

void TestBookmarkTreeView::aRightClickLeavesCurrentRowAndSelection()
{
    QFETCH(int, row);
    QFETCH(int, modifiers);
    QSignalSpy selected(m_view->selectionModel(), &QItemSelectionModel::selectionChanged);
    QSignalSpy current(m_view->selectionModel(), &QItemSelectionModel::currentChanged);
    QSignalSpy pressed(m_view.get(), &QAbstractItemView::pressed);
    QSignalSpy clicked(m_view.get(), &QAbstractItemView::clicked);
    rightClick(row, Qt::KeyboardModifiers(modifiers));
    QCOMPARE(selected.count(), 0);
    QCOMPARE(current.count(), 0);
    QCOMPARE(pressed.count(), 0);
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(m_view->currentIndex(), m_rows.index(0));
    QVERIFY(m_view->selectionModel()->isSelected(m_rows.index(1)));
}

void TestBookmarkTreeView::aRightClickOpensNoEditorAndNoRow()
{
    m_view->setEditTriggers(QAbstractItemView::AllEditTriggers);
    rightClick(3);
    rightClick(3);
    QVERIFY(!m_view->isPersistentEditorOpen(m_rows.index(3)));
    QVERIFY(m_view->viewport()->findChildren<QWidget *>().isEmpty());
}

void TestBookmarkTreeView::aRightClickAsksForOneMenuAtThePointer()
{
    QSignalSpy menus(m_view.get(), &QWidget::customContextMenuRequested);
    rightClick(3);
    QCOMPARE(rowOf(menus), 3);
    QCOMPARE(menus.constFirst().constFirst().toPoint(), middle(3));
}

void TestBookmarkTreeView::aRightPressIsIgnoredWithTheLeftButtonDown()
{
    QSignalSpy pressed(m_view.get(), &QAbstractItemView::pressed);
    pressAsSecond(Qt::RightButton, 3);
    QCOMPARE(pressed.count(), 0);
    QCOMPARE(m_view->currentIndex(), m_rows.index(0));
}

void TestBookmarkTreeView::aLeftPressCountsWithTheRightButtonDown()
{
    QSignalSpy pressed(m_view.get(), &QAbstractItemView::pressed);
    pressAsSecond(Qt::LeftButton, 3);
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(m_view->currentIndex(), m_rows.index(3));
}

void TestBookmarkTreeView::otherButtonsChooseARowAsInAnyTree_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("left") << int(Qt::LeftButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
}

void TestBookmarkTreeView::otherButtonsChooseARowAsInAnyTree()
{
    QFETCH(int, button);
    QSignalSpy pressed(m_view.get(), &QAbstractItemView::pressed);
    QTest::mouseClick(m_view->viewport(), Qt::MouseButton(button), Qt::NoModifier, middle(3));
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(m_view->currentIndex(), m_rows.index(3));
    QCOMPARE(m_view->selectionModel()->selectedIndexes(), QModelIndexList{m_rows.index(3)});
}

void TestBookmarkTreeView::theMenuKeyMeansTheRowUnderThePointer()
{
    QSignalSpy menus(m_view.get(), &QWidget::customContextMenuRequested);
    pointAt(4);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, middle(0));
    QCoreApplication::sendEvent(m_view.get(), &event);
    QCOMPARE(rowOf(menus), 4);
    QCOMPARE(m_view->currentIndex(), m_rows.index(0));
}

void TestBookmarkTreeView::aMenuIsAskedForAtThePointerWhateverTheEventSays()
{
    QSignalSpy menus(m_view.get(), &QWidget::customContextMenuRequested);
    pointAt(2);
    QContextMenuEvent event(QContextMenuEvent::Mouse, middle(0), m_view->viewport()->mapToGlobal(middle(0)));
    QCoreApplication::sendEvent(m_view->viewport(), &event);
    QCOMPARE(rowOf(menus), 2);
    // Above the rows it is the viewport's own point, not the tree's.
    m_view->setHeaderHidden(false);
    m_view->header()->setFixedHeight(40);
    QCoreApplication::processEvents();
    pointAt(1);
    menus.clear();
    QCoreApplication::sendEvent(m_view->viewport(), &event);
    QCOMPARE(rowOf(menus), 1);
}

void TestBookmarkTreeView::thePolicyOfMenusIsTheUsualOne()
{
    QCOMPARE(m_view->contextMenuPolicy(), Qt::DefaultContextMenu);
    QCOMPARE(m_view->viewport()->contextMenuPolicy(), QWidget().contextMenuPolicy());
}

void TestBookmarkTreeView::theTreeAddsNeitherSignalsNorSlots()
{
    const QMetaObject &type = BookmarkTreeView::staticMetaObject;
    QCOMPARE(type.methodCount(), type.methodOffset());
    QCOMPARE(type.superClass(), &ExtendedTreeView::staticMetaObject);
}

QTEST_MAIN(TestBookmarkTreeView)
#include "tst_bookmarktreeview.moc"
