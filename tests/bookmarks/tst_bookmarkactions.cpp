// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkspanel.h"
#include "words.h"

#include "bookmarks/bookmarktreeview.h"
#include "bookmarks/cvbookmarkstoolwidgetprivate.h"

#include <halvora/fancydockwidget.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

// What the entries of the panel's menus do, and to which item.
class TestBookmarkActions : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void deletingMeansTheItemOfTheMenu_data();
    void deletingMeansTheItemOfTheMenu();
    void aFolderIsDeletedWithWhatIsInIt();
    void aClickDoesNotChangeWhatAMenuMeant();
    void theItemOfAMenuIsFollowedWhenItMoves();
    void anItemThatIsGoneIsNotDeletedAgain();
    void theEmptyAreaIsNoItem();
    void withoutAMenuNothingIsMeant();
    void afterAResetNothingIsMeant();
    void aChosenColourIsStored_data();
    void aChosenColourIsStored();
    void noneTakesTheColourAway();
    void bothColourSlotsDoTheSame_data();
    void bothColourSlotsDoTheSame();
    void bothDeleteSlotsDoTheSame_data();
    void bothDeleteSlotsDoTheSame();
    void addBookmarkShowsTheNewsgroupsPanel();
    void addBookmarkWithoutANewsgroupsPanelDoesNothing();

private:
    QModelIndex at(const QVector<int> &rows) const { return m_panel->at(rows); }
    QStringList names(const QModelIndex &parent = QModelIndex()) const
    {
        return m_panel->store().names(parent);
    }
    bool choose(const QModelIndex &index, const char *entry) const
    {
        return m_panel->choose(index, {QString::fromLatin1(entry)});
    }
    void call(const char *slot) const { QMetaObject::invokeMethod(m_panel->content(), slot); }
    QString storedColor(const char *newsgroup) const;
    /// The colour of a bookmark or a folder, by what it is stored as.
    QAction *colorAction(const char *name) const;

    std::unique_ptr<BookmarksPanel> m_panel;
};

void TestBookmarkActions::init()
{
    m_panel = std::make_unique<BookmarksPanel>();
    m_panel->store().check();
    m_panel->addFolder("one", "a b c");
    m_panel->addFolder("two", "d");
}

void TestBookmarkActions::cleanup()
{
    m_panel.reset();
}

QString TestBookmarkActions::storedColor(const char *newsgroup) const
{
    const QVector<BookmarkRow> rows = m_panel->store().rows();
    for (const BookmarkRow &row : rows) {
        if (row.at(3) == QLatin1String(newsgroup))
            return row.at(4);
    }
    return QStringLiteral("not there");
}

QAction *TestBookmarkActions::colorAction(const char *name) const
{
    const auto actions = m_panel->content()->findChildren<QAction *>();
    for (QAction *action : actions) {
        if (action->isCheckable() && action->data() == QString::fromLatin1(name))
            return action;
    }
    return nullptr;
}

void TestBookmarkActions::deletingMeansTheItemOfTheMenu_data()
{
    QTest::addColumn<QVector<int>>("rows");
    QTest::addColumn<QByteArray>("entry");
    QTest::addColumn<QString>("left");
    QTest::newRow("a bookmark") << QVector<int>{0, 0} << QByteArray("Delete Bookmark")
                                << QStringLiteral("one two : b c : inner d");
    QTest::newRow("one of the selected bookmarks")
        << QVector<int>{0, 1} << QByteArray("Delete Bookmark") << QStringLiteral("one two : a c : inner d");
    QTest::newRow("a folder in a folder")
        << QVector<int>{1, 0} << QByteArray("Delete Folder") << QStringLiteral("one two : a b c : d");
}

void TestBookmarkActions::deletingMeansTheItemOfTheMenu()
{
    QFETCH(QVector<int>, rows);
    QFETCH(QByteArray, entry);
    m_panel->addFolder("inner", "x", at({1}));
    m_panel->click(at({0, 1}));
    m_panel->click(at({0, 2}), Qt::ControlModifier);
    QVERIFY(choose(at(rows), entry.constData()));
    QVERIFY(!QApplication::activeModalWidget());
    const QStringList left = names() + words(":") + names(at({0})) + words(":") + names(at({1}));
    QTEST(left.join(QLatin1Char(' ')), "left");
}

void TestBookmarkActions::aFolderIsDeletedWithWhatIsInIt()
{
    m_panel->click(at({1}));
    QVERIFY(choose(at({0}), "Delete Folder"));
    QCOMPARE(names(), words("two"));
    QCOMPARE(m_panel->store().rows().size(), 2);
}

void TestBookmarkActions::aClickDoesNotChangeWhatAMenuMeant()
{
    QVERIFY(!m_panel->menuTexts(at({0, 0})).isEmpty());
    m_panel->click(at({0, 2}));
    call("deleteBookmark");
    QCOMPARE(names(at({0})), words("b c"));
}

void TestBookmarkActions::theItemOfAMenuIsFollowedWhenItMoves()
{
    QVERIFY(!m_panel->menuTexts(at({0, 1})).isEmpty());
    m_panel->model().addBookmarks(words("x y"), at({0}));
    call("deleteBookmark");
    QCOMPARE(names(at({0})), words("x y a c"));
}

void TestBookmarkActions::anItemThatIsGoneIsNotDeletedAgain()
{
    QVERIFY(!m_panel->menuTexts(at({0, 1})).isEmpty());
    call("deleteBookmark");
    call("deleteBookmark");
    call("deleteBookmarkFolder");
    m_panel->content()->colorChanged(colorAction("red"));
    QCOMPARE(names(at({0})), words("a c"));
    QCOMPARE(m_panel->color(at({0, 1})), QString());
}

void TestBookmarkActions::theEmptyAreaIsNoItem()
{
    QVERIFY(!m_panel->menuTexts(at({0, 1})).isEmpty());
    QVERIFY(!m_panel->menuTexts(QModelIndex()).isEmpty());
    call("deleteBookmark");
    call("deleteBookmarkFolder");
    QCOMPARE(names(at({0})), words("a b c"));
    QCOMPARE(names(), words("one two"));
}

void TestBookmarkActions::withoutAMenuNothingIsMeant()
{
    m_panel->click(at({0, 1}));
    call("deleteBookmark");
    call("deleteBookmarkFolder");
    m_panel->content()->colorChanged(colorAction("red"));
    m_panel->content()->folderColorChanged(colorAction("red"));
    QCOMPARE(names() + names(at({0})), words("one two a b c"));
    QCOMPARE(m_panel->color(at({0, 1})), QString());
    call("addBookmarkFolder");
    QCOMPARE(names().size(), 3);
}

void TestBookmarkActions::afterAResetNothingIsMeant()
{
    QVERIFY(!m_panel->menuTexts(at({0})).isEmpty());
    m_panel->model().load();
    call("deleteBookmark");
    call("deleteBookmarkFolder");
    m_panel->content()->colorChanged(colorAction("red"));
    QCOMPARE(names(), words("one two"));
    QCOMPARE(m_panel->color(at({0})), QString());
    call("addBookmarkFolder");
    QCOMPARE(names().size(), 3);
    QCOMPARE(names(at({0})), words("a b c"));
}

void TestBookmarkActions::aChosenColourIsStored_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    const QStringList texts = words("Yellow Orange Red Gray Green Cyan Brown Blue");
    for (const QString &text : texts)
        QTest::newRow(qPrintable(text)) << text << text.toLower();
}

void TestBookmarkActions::aChosenColourIsStored()
{
    QFETCH(QString, text);
    QFETCH(QString, name);
    m_panel->click(at({0, 2}));
    QSignalSpy changed(&m_panel->model(), &QAbstractItemModel::dataChanged);
    QVERIFY(m_panel->choose(at({0, 1}), {QStringLiteral("Color"), text}));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.constFirst().constFirst().toModelIndex(), at({0, 1}));
    QCOMPARE(m_panel->color(at({0, 1})), name);
    QCOMPARE(storedColor("b"), name);
    QCOMPARE(m_panel->color(at({0, 2})), QString());
    QVERIFY(m_panel->choose(at({1}), {QStringLiteral("Folder Color"), text}));
    QCOMPARE(m_panel->color(at({1})), name);
    QCOMPARE(m_panel->store().rows().at(4).at(4), name);
}

void TestBookmarkActions::noneTakesTheColourAway()
{
    m_panel->model().setItemColor(at({0, 1}), QStringLiteral("red"));
    QVERIFY(m_panel->choose(at({0, 1}), words("Color None")));
    QCOMPARE(m_panel->color(at({0, 1})), QString());
    QCOMPARE(storedColor("b"), QString());
}

void TestBookmarkActions::bothColourSlotsDoTheSame_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QVector<int>>("rows");
    for (const char *slot : {"colorChanged", "folderColorChanged"}) {
        QTest::addRow("%s of a bookmark", slot) << QByteArray(slot) << QVector<int>{0, 1};
        QTest::addRow("%s of a folder", slot) << QByteArray(slot) << QVector<int>{1};
    }
}

void TestBookmarkActions::bothColourSlotsDoTheSame()
{
    QFETCH(QByteArray, slot);
    QFETCH(QVector<int>, rows);
    QVERIFY(!m_panel->menuTexts(at(rows)).isEmpty());
    QVERIFY(QMetaObject::invokeMethod(m_panel->content(), slot.constData(),
                                      Q_ARG(QAction *, colorAction("brown"))));
    QCOMPARE(m_panel->color(at(rows)), QStringLiteral("brown"));
}

void TestBookmarkActions::bothDeleteSlotsDoTheSame_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::newRow("of bookmarks") << QByteArray("deleteBookmark");
    QTest::newRow("of folders") << QByteArray("deleteBookmarkFolder");
}

void TestBookmarkActions::bothDeleteSlotsDoTheSame()
{
    QFETCH(QByteArray, slot);
    QVERIFY(!m_panel->menuTexts(at({0, 1})).isEmpty());
    call(slot.constData());
    QCOMPARE(names(at({0})), words("a c"));
    QVERIFY(!m_panel->menuTexts(at({1})).isEmpty());
    call(slot.constData());
    QCOMPARE(names(), words("one"));
}

void TestBookmarkActions::addBookmarkShowsTheNewsgroupsPanel()
{
    auto *newsgroups = new FancyDockWidget;
    m_panel->window().setNewsgroupsPanel(newsgroups);
    newsgroups->hide();
    QVERIFY(choose(at({0, 1}), "Add Bookmark"));
    QVERIFY(newsgroups->isVisible());
    QCOMPARE(names(at({0})), words("a b c"));
}

void TestBookmarkActions::addBookmarkWithoutANewsgroupsPanelDoesNothing()
{
    QVERIFY(choose(at({0, 1}), "Add Bookmark"));
    QCOMPARE(names() + names(at({0})), words("one two a b c"));
}

QTEST_MAIN(TestBookmarkActions)
#include "tst_bookmarkactions.moc"
