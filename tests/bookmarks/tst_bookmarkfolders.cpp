// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkspanel.h"
#include "words.h"

#include "bookmarks/bookmarktreeview.h"
#include "bookmarks/cvbookmarkstoolwidgetprivate.h"

#include <QLineEdit>
#include <QTest>

// How folders of bookmarks are made and named in the panel.
class TestBookmarkFolders : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aFolderFromTheEmptyAreaComesLastAndIsNamedAtOnce();
    void aFolderFromAFolderComesFirstInItAndIsNamedAtOnce();
    void aFolderGoesIntoANestedOne();
    void aFolderFromACollapsedFolderOpensIt();
    void aDoubleClickRenamesAFolderOnly();
    void belowABookmarkNoFolderIsAdded();

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
    /// Whether the first name of @p folder is in a field to be typed over.
    bool isNewFolderNamed(const QModelIndex &folder) const;
    void type(const char *name) const;

    std::unique_ptr<BookmarksPanel> m_panel;
};

void TestBookmarkFolders::init()
{
    m_panel = std::make_unique<BookmarksPanel>();
    m_panel->store().check();
    m_panel->addFolder("one", "a b c");
    m_panel->addFolder("two", "d");
}

void TestBookmarkFolders::cleanup()
{
    m_panel.reset();
}

bool TestBookmarkFolders::isNewFolderNamed(const QModelIndex &folder) const
{
    const auto *editor = qobject_cast<QLineEdit *>(m_panel->editor());
    return editor && editor->isVisible() && editor->text() == QLatin1String("New Folder") &&
           folder.data().toString() == editor->text() &&
           m_panel->view()->visualRect(folder).contains(editor->geometry().center());
}

void TestBookmarkFolders::type(const char *name) const
{
    QWidget *editor = m_panel->editor();
    QTest::keySequence(editor, QKeySequence::SelectAll);
    QTest::keyClicks(editor, QString::fromLatin1(name));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_VERIFY(!m_panel->editor());
}

void TestBookmarkFolders::aFolderFromTheEmptyAreaComesLastAndIsNamedAtOnce()
{
    QVERIFY(choose(QModelIndex(), "Add Folder"));
    QCOMPARE(names().size(), 3);
    QVERIFY(isNewFolderNamed(at({2})));
    type("Mine");
    QCOMPARE(names(), words("one two Mine"));
    QCOMPARE(m_panel->store().orders(QStringLiteral("NULL")), rows("one 0, two 1, Mine 2"));
}

void TestBookmarkFolders::aFolderFromAFolderComesFirstInItAndIsNamedAtOnce()
{
    QVERIFY(choose(at({0}), "Add Folder"));
    QCOMPARE(names(at({0})).size(), 4);
    QVERIFY(isNewFolderNamed(at({0, 0})));
    type("Mine");
    QCOMPARE(names(at({0})), words("Mine a b c"));
    QCOMPARE(names(), words("one two"));
}

void TestBookmarkFolders::aFolderGoesIntoANestedOne()
{
    m_panel->addFolder("inner", "x", at({1}));
    QVERIFY(choose(at({1, 0}), "Add Folder"));
    QVERIFY(isNewFolderNamed(at({1, 0, 0})));
    QCOMPARE(names(at({1, 0})).size(), 2);
}

void TestBookmarkFolders::aFolderFromACollapsedFolderOpensIt()
{
    m_panel->view()->collapse(at({0}));
    QVERIFY(choose(at({0}), "Add Folder"));
    QVERIFY(m_panel->view()->isExpanded(at({0})));
    QVERIFY(isNewFolderNamed(at({0, 0})));
}

void TestBookmarkFolders::aDoubleClickRenamesAFolderOnly()
{
    for (const QModelIndex &index : {at({0, 1}), at({1})}) {
        const QPoint place = m_panel->place(index);
        QTest::mouseClick(m_panel->view()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QTest::mouseDClick(m_panel->view()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QCOMPARE(m_panel->editor() != nullptr, index == at({1}));
    }
    type("Named");
    QCOMPARE(names(), words("one Named"));
    QTest::keyClick(m_panel->view(), Qt::Key_F2);
    QVERIFY(!m_panel->editor());
}

void TestBookmarkFolders::belowABookmarkNoFolderIsAdded()
{
    QVERIFY(!m_panel->menuTexts(at({0, 1})).isEmpty());
    m_panel->content()->addBookmarkFolder();
    QCOMPARE(names() + names(at({0})), words("one two a b c"));
    QVERIFY(!m_panel->editor());
}

QTEST_MAIN(TestBookmarkFolders)
#include "tst_bookmarkfolders.moc"
