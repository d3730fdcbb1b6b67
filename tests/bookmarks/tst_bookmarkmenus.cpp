// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkspanel.h"
#include "words.h"

#include "bookmarks/bookmarktreeview.h"
#include "bookmarks/cvbookmarkstoolwidgetprivate.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

// What the menus of the panel hold, where they open and what is checked in them.
class TestBookmarkMenus : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void theEmptyAreaOffersAFolderOnly();
    void aBookmarkOffersItsActions();
    void aFolderOffersItsActions();
    void aMenuOpensAtThePointer();
    void aMenuOpensAtThePointerWhateverItMeans();
    void aRightClickLeavesTheSelection();
    void theColoursOfABookmarkBeginWithNone();
    void theColoursOfAFolderLackNone();
    void theColourOfABookmarkIsChecked_data();
    void theColourOfABookmarkIsChecked();
    void theColourOfAFolderIsChecked_data();
    void theColourOfAFolderIsChecked();
    void aFolderWithoutColourKeepsTheLastCheck();
    void oneColourIsCheckedAtATime();
    void theSubmenuOfAFolderHasItsIcon_data();
    void theSubmenuOfAFolderHasItsIcon();
    void theMenuGoesAndTheActionsStay();

private:
    /// The texts of what is checked in the submenu @p title of the menu at @p index.
    QStringList checked(const QModelIndex &index, const char *title);
    QStringList submenuTexts(const QModelIndex &index, const char *title);
    QModelIndex folder() const { return m_panel->at({0}); }
    QModelIndex bookmark() const { return m_panel->at({0, 0}); }
    void setColor(const QModelIndex &index, const QByteArray &name)
    {
        m_panel->model().setItemColor(index, QString::fromLatin1(name));
    }

    std::unique_ptr<BookmarksPanel> m_panel;
};

namespace {

void addColors()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("yellow") << QByteArray("yellow") << QStringLiteral("Yellow");
    QTest::newRow("orange") << QByteArray("orange") << QStringLiteral("Orange");
    QTest::newRow("red") << QByteArray("red") << QStringLiteral("Red");
    QTest::newRow("gray") << QByteArray("gray") << QStringLiteral("Gray");
    QTest::newRow("green") << QByteArray("green") << QStringLiteral("Green");
    QTest::newRow("cyan") << QByteArray("cyan") << QStringLiteral("Cyan");
    QTest::newRow("brown") << QByteArray("brown") << QStringLiteral("Brown");
    QTest::newRow("blue") << QByteArray("blue") << QStringLiteral("Blue");
}

/// The entries of the submenu @p title; none when there is no such.
QList<QAction *> submenu(const QMenu &menu, const char *title)
{
    const QAction *entry = menuEntry(menu, QString::fromLatin1(title));
    return entry && entry->menu() ? entry->menu()->actions() : QList<QAction *>();
}

} // namespace

void TestBookmarkMenus::init()
{
    m_panel = std::make_unique<BookmarksPanel>();
    m_panel->store().check();
    m_panel->addFolder("f", "a b c");
}

void TestBookmarkMenus::cleanup()
{
    m_panel.reset();
}

QStringList TestBookmarkMenus::checked(const QModelIndex &index, const char *title)
{
    QStringList texts;
    m_panel->openMenu(index, [title, &texts](const QMenu &menu) {
        const QList<QAction *> colors = submenu(menu, title);
        for (const QAction *color : colors) {
            if (color->isChecked())
                texts.append(color->text());
        }
    });
    return texts;
}

QStringList TestBookmarkMenus::submenuTexts(const QModelIndex &index, const char *title)
{
    QStringList texts;
    m_panel->openMenu(index, [title, &texts](const QMenu &menu) {
        const QList<QAction *> colors = submenu(menu, title);
        for (const QAction *color : colors)
            texts.append(color->text());
    });
    return texts;
}

void TestBookmarkMenus::theEmptyAreaOffersAFolderOnly()
{
    QCOMPARE(m_panel->menuTexts(QModelIndex()), QStringList{QStringLiteral("Add Folder")});
}

void TestBookmarkMenus::aBookmarkOffersItsActions()
{
    QCOMPARE(m_panel->menuTexts(bookmark()),
             (QStringList{QStringLiteral("Add Bookmark"), QStringLiteral("Delete Bookmark"), QString(),
                          QStringLiteral("Color")}));
}

void TestBookmarkMenus::aFolderOffersItsActions()
{
    QCOMPARE(m_panel->menuTexts(folder()),
             (QStringList{QStringLiteral("Delete Folder"), QStringLiteral("Add Folder"), QString(),
                          QStringLiteral("Folder Color")}));
}

void TestBookmarkMenus::aMenuOpensAtThePointer()
{
    for (const QModelIndex &index : {bookmark(), folder(), QModelIndex()}) {
        QPoint corner;
        QWidget *parent = m_panel->view();
        QVERIFY(m_panel->openMenu(index, [&corner, &parent](const QMenu &menu) {
            corner = menu.pos();
            parent = menu.parentWidget();
        }));
        QCOMPARE(corner, m_panel->view()->viewport()->mapToGlobal(m_panel->place(index)));
        QVERIFY(!parent);
    }
}

void TestBookmarkMenus::aMenuOpensAtThePointerWhateverItMeans()
{
    QStringList texts;
    QPoint corner;
    QTimer::singleShot(0, m_panel->content(), [&texts, &corner] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        texts = menuTexts(*menu);
        corner = menu->pos();
        menu->close();
    });
    const QPoint pointer = m_panel->view()->viewport()->mapToGlobal(m_panel->place(folder()));
    QCursor::setPos(pointer);
    m_panel->content()->showContextMenu(m_panel->place(bookmark()));
    QCOMPARE(texts.value(1), QStringLiteral("Delete Bookmark"));
    QCOMPARE(corner, pointer);
}

void TestBookmarkMenus::aRightClickLeavesTheSelection()
{
    m_panel->click(m_panel->at({0, 1}));
    m_panel->click(m_panel->at({0, 2}), Qt::ControlModifier);
    const QModelIndexList selected = m_panel->view()->selectionModel()->selectedIndexes();
    QCOMPARE(selected.size(), 2);
    QVERIFY(!m_panel->menuTexts(bookmark()).isEmpty());
    QCOMPARE(m_panel->view()->selectionModel()->selectedIndexes(), selected);
    QCOMPARE(m_panel->view()->currentIndex(), m_panel->at({0, 2}));
}

void TestBookmarkMenus::theColoursOfABookmarkBeginWithNone()
{
    QCOMPARE(submenuTexts(bookmark(), "Color"), words("None Yellow Orange Red Gray Green Cyan Brown Blue"));
}

void TestBookmarkMenus::theColoursOfAFolderLackNone()
{
    QCOMPARE(submenuTexts(folder(), "Folder Color"), words("Yellow Orange Red Gray Green Cyan Brown Blue"));
}

void TestBookmarkMenus::theColourOfABookmarkIsChecked_data()
{
    addColors();
    QTest::newRow("none") << QByteArray() << QStringLiteral("None");
}

void TestBookmarkMenus::theColourOfABookmarkIsChecked()
{
    QFETCH(QByteArray, name);
    setColor(m_panel->at({0, 1}), name == "red" ? "blue" : "red");
    QCOMPARE(checked(m_panel->at({0, 1}), "Color").size(), 1);
    setColor(bookmark(), name);
    QTEST(checked(bookmark(), "Color").join(QLatin1Char(' ')), "text");
}

void TestBookmarkMenus::theColourOfAFolderIsChecked_data()
{
    addColors();
}

void TestBookmarkMenus::theColourOfAFolderIsChecked()
{
    QFETCH(QByteArray, name);
    setColor(folder(), name);
    QTEST(checked(folder(), "Folder Color").join(QLatin1Char(' ')), "text");
}

void TestBookmarkMenus::aFolderWithoutColourKeepsTheLastCheck()
{
    const QModelIndex plain = m_panel->addFolder("plain");
    QCOMPARE(checked(plain, "Folder Color"), QStringList());
    setColor(folder(), "green");
    QCOMPARE(checked(folder(), "Folder Color"), words("Green"));
    QCOMPARE(checked(plain, "Folder Color"), words("Green"));
    QCOMPARE(m_panel->color(plain), QString());
}

void TestBookmarkMenus::oneColourIsCheckedAtATime()
{
    QVERIFY(m_panel->choose(bookmark(), words("Color Blue")));
    QVERIFY(m_panel->choose(bookmark(), words("Color Red")));
    QCOMPARE(checked(bookmark(), "Color"), words("Red"));
    QCOMPARE(checked(m_panel->at({0, 1}), "Color"), words("None"));
    QCOMPARE(checked(bookmark(), "Color"), words("Red"));
}

void TestBookmarkMenus::theSubmenuOfAFolderHasItsIcon_data()
{
    addColors();
    QTest::newRow("none") << QByteArray() << QString();
}

void TestBookmarkMenus::theSubmenuOfAFolderHasItsIcon()
{
    QFETCH(QByteArray, name);
    setColor(folder(), name);
    QImage shown;
    QVERIFY(m_panel->openMenu(folder(), [&shown](const QMenu &menu) {
        const QAction *entry = menuEntry(menu, QStringLiteral("Folder Color"));
        QVERIFY(entry);
        shown = entry->icon().pixmap(16, 16).toImage();
    }));
    const QIcon icon(QStringLiteral(":/corvia/bookmarks/folder_%1.png").arg(QString::fromLatin1(name)));
    QCOMPARE(shown, icon.pixmap(16, 16).toImage());
    QCOMPARE(shown.isNull(), name.isEmpty());
}

void TestBookmarkMenus::theMenuGoesAndTheActionsStay()
{
    QPointer<QMenu> opened;
    QPointer<QAction> action;
    QVERIFY(m_panel->openMenu(bookmark(), [&opened, &action](QMenu &menu) {
        opened = &menu;
        action = menuEntry(menu, QStringLiteral("Delete Bookmark"));
    }));
    QVERIFY(!opened);
    QVERIFY(action);
    QVERIFY(action->associatedWidgets().isEmpty());
}

QTEST_MAIN(TestBookmarkMenus)
#include "tst_bookmarkmenus.moc"
