// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkspanel.h"
#include "words.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/bookmarktreeview.h"
#include "bookmarks/cvbookmarkstoolwidgetprivate.h"
#include "connector/cvconnectorplugin.h"

#include <halvora/newsgroup.h>

#include <QComboBox>
#include <QLineEdit>
#include <QTabWidget>
#include <QTest>

// What opens when somebody clicks in the panel, and what the plug-in opens for it.
class TestBookmarkPages : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aClickOnABookmarkOpensItsNewsgroup();
    void aTextNewsgroupOpensToo();
    void anotherClickOpensNoSecondPage();
    void aFolderOpensWithOneNewsgroupForFiles_data();
    void aFolderOpensWithOneNewsgroupForFiles();
    void foldersInAFolderAreLeftOut();
    void aFolderOpensInTheOrderOfItsBookmarks();
    void aFolderIsTitledByItsNewName();
    void aClickBesideTheRowsOpensNothing();
    void otherButtonsOpenNothing_data();
    void otherButtonsOpenNothing();
    void openingAFolderLeavesItClosed();
    void aDoubleClickOpensAFolderBeforeItIsNamed();
    void thePlugInOpensNothingForAFolder();
    void thePlugInOpensWhatIsForFiles_data();
    void thePlugInOpensWhatIsForFiles();
    void thePlugInPassesTheFacetOn_data();
    void thePlugInPassesTheFacetOn();
    void withoutAWindowNothingOpens();

private:
    QTabWidget *pages() const
    {
        return m_panel->window().findChild<QTabWidget *>(QStringLiteral("halvora.pages"));
    }
    /// Titles and newsgroups of the pages, as in "title: group group".
    QStringList opened() const;
    /// The choice of articles that the page in front begins with, an HIndex::MediaFacet.
    int facet() const
    {
        return pages()
            ->currentWidget()
            ->findChild<QComboBox *>(QStringLiteral("articleKind"))
            ->currentIndex();
    }

    std::unique_ptr<BookmarksPanel> m_panel;
};

namespace {

QList<Newsgroup> newsgroups(const QString &names)
{
    QList<Newsgroup> list;
    const QStringList parts = names.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &name : parts)
        list.append(Newsgroup(name));
    return list;
}

} // namespace

void TestBookmarkPages::init()
{
    m_panel = std::make_unique<BookmarksPanel>();
    m_panel->store().check();
}

void TestBookmarkPages::cleanup()
{
    m_panel.reset();
}

// A page is known by a name of lines: what it is, its title, its newsgroups.
QStringList TestBookmarkPages::opened() const
{
    QStringList list;
    for (int number = 0; number < pages()->count(); ++number) {
        QStringList lines = pages()->widget(number)->objectName().split(QLatin1Char('\n'));
        lines.removeFirst();
        const QString title = lines.takeFirst();
        list.append(title + QStringLiteral(": ") + lines.join(QLatin1Char(' ')));
    }
    return list;
}

void TestBookmarkPages::aClickOnABookmarkOpensItsNewsgroup()
{
    m_panel->addFolder("f", "alt.binaries.test comp.lang.c++");
    QCOMPARE(opened(), QStringList());
    m_panel->click(m_panel->at({0, 0}));
    QCOMPARE(opened(), QStringList{QStringLiteral("alt.binaries.test: alt.binaries.test")});
    QCOMPARE(facet(), int(HIndex::MediaFacet(0)));
}

void TestBookmarkPages::aTextNewsgroupOpensToo()
{
    m_panel->addFolder("f", "comp.lang.c++");
    m_panel->click(m_panel->at({0, 0}));
    QCOMPARE(opened(), QStringList{QStringLiteral("comp.lang.c++: comp.lang.c++")});
}

void TestBookmarkPages::anotherClickOpensNoSecondPage()
{
    m_panel->addFolder("f", "alt.binaries.test a.b");
    m_panel->click(m_panel->at({0, 0}));
    m_panel->click(m_panel->at({0, 1}));
    m_panel->click(m_panel->at({0, 0}));
    QCOMPARE(pages()->count(), 2);
    QCOMPARE(pages()->currentIndex(), 0);
}

void TestBookmarkPages::aFolderOpensWithOneNewsgroupForFiles_data()
{
    QTest::addColumn<QByteArray>("newsgroups");
    QTest::addColumn<QString>("opened");
    QTest::newRow("nothing in it") << QByteArray() << QString();
    QTest::newRow("one for texts") << QByteArray("comp.lang.c++") << QString();
    QTest::newRow("all for texts") << QByteArray("comp.lang.c++ alt.test alt.binariesless") << QString();
    QTest::newRow("one for files") << QByteArray("alt.binaries.a")
                                   << QStringLiteral("Folder name: alt.binaries.a");
    QTest::newRow("the first for files")
        << QByteArray("alt.binaries.a comp.b") << QStringLiteral("Folder name: alt.binaries.a comp.b");
    QTest::newRow("the last for files") << QByteArray("comp.a comp.b alt.binaries.c")
                                        << QStringLiteral("Folder name: comp.a comp.b alt.binaries.c");
}

void TestBookmarkPages::aFolderOpensWithOneNewsgroupForFiles()
{
    QFETCH(QByteArray, newsgroups);
    m_panel->addFolder("Folder name", newsgroups.constData());
    m_panel->click(m_panel->at({0}));
    QTEST(opened().join(QLatin1Char('|')), "opened");
    if (!opened().isEmpty())
        QCOMPARE(facet(), int(HIndex::mediaCategoryToFacet(HIndex::MediaCategory(1))));
}

void TestBookmarkPages::foldersInAFolderAreLeftOut()
{
    const QModelIndex outer = m_panel->addFolder("outer", "comp.a");
    m_panel->addFolder("inner", "alt.binaries.b", outer);
    m_panel->click(m_panel->at({0}));
    QCOMPARE(opened(), QStringList());
    m_panel->model().addBookmarks(words("alt.binaries.c"), m_panel->at({0}));
    m_panel->click(m_panel->at({0}));
    QCOMPARE(opened(), QStringList{QStringLiteral("outer: alt.binaries.c comp.a")});
}

void TestBookmarkPages::aFolderOpensInTheOrderOfItsBookmarks()
{
    m_panel->addFolder("f", "z.binaries a.binaries");
    m_panel->model().addBookmarks(words("m.binaries"), m_panel->at({0, 0}));
    m_panel->model().load();
    QTRY_VERIFY(m_panel->view()->isExpanded(m_panel->at({0})));
    m_panel->click(m_panel->at({0}));
    QCOMPARE(opened(), QStringList{QStringLiteral("f: z.binaries m.binaries a.binaries")});
}

void TestBookmarkPages::aFolderIsTitledByItsNewName()
{
    m_panel->addFolder("before", "alt.binaries.a");
    m_panel->model().setData(m_panel->at({0}), QStringLiteral("<b>after</b>"));
    m_panel->click(m_panel->at({0}));
    QCOMPARE(pages()->tabText(0), QStringLiteral("<b>after</b>"));
}

void TestBookmarkPages::aClickBesideTheRowsOpensNothing()
{
    m_panel->addFolder("f", "alt.binaries.a");
    m_panel->click(QModelIndex());
    m_panel->content()->bookmarkSelected(QModelIndex());
    QCOMPARE(opened(), QStringList());
}

void TestBookmarkPages::otherButtonsOpenNothing_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("middle") << int(Qt::MiddleButton);
    QTest::newRow("right") << int(Qt::RightButton);
}

void TestBookmarkPages::otherButtonsOpenNothing()
{
    QFETCH(int, button);
    m_panel->addFolder("f", "alt.binaries.a");
    for (const QModelIndex &index : {m_panel->at({0}), m_panel->at({0, 0})}) {
        QTest::mouseClick(m_panel->view()->viewport(), Qt::MouseButton(button), Qt::NoModifier,
                          m_panel->place(index));
    }
    QCOMPARE(opened(), QStringList());
}

void TestBookmarkPages::openingAFolderLeavesItClosed()
{
    m_panel->addFolder("f", "alt.binaries.a");
    m_panel->view()->collapse(m_panel->at({0}));
    m_panel->click(m_panel->at({0}));
    QCOMPARE(pages()->count(), 1);
    QVERIFY(!m_panel->view()->isExpanded(m_panel->at({0})));
}

void TestBookmarkPages::aDoubleClickOpensAFolderBeforeItIsNamed()
{
    m_panel->addFolder("f", "alt.binaries.a");
    m_panel->click(m_panel->at({0}));
    QTest::mouseDClick(m_panel->view()->viewport(), Qt::LeftButton, Qt::NoModifier,
                       m_panel->place(m_panel->at({0})));
    QCOMPARE(opened(), QStringList{QStringLiteral("f: alt.binaries.a")});
    const auto *editor = qobject_cast<QLineEdit *>(m_panel->editor());
    QVERIFY(editor && editor->text() == QLatin1String("f"));
}

void TestBookmarkPages::thePlugInOpensNothingForAFolder()
{
    BookmarkItem folder(BookmarkKind::Folder, nullptr);
    folder.setName(QStringLiteral("alt.binaries.a"));
    m_panel->store().plugin()->showNewsgroup(folder);
    QCOMPARE(opened(), QStringList());
    BookmarkItem bookmark(BookmarkKind::Bookmark, nullptr);
    bookmark.setName(QStringLiteral("alt.binaries.a"));
    m_panel->store().plugin()->showNewsgroup(bookmark);
    QCOMPARE(opened(), QStringList{QStringLiteral("alt.binaries.a: alt.binaries.a")});
}

void TestBookmarkPages::thePlugInOpensWhatIsForFiles_data()
{
    QTest::addColumn<QString>("names");
    QTest::addColumn<bool>("opens");
    QTest::newRow("an empty list") << QString() << false;
    QTest::newRow("texts only") << QStringLiteral("comp.lang.c++ alt.test") << false;
    QTest::newRow("one for files among them") << QStringLiteral("comp.a alt.binaries.b comp.c") << true;
    QTest::newRow("files only") << QStringLiteral("alt.binaries.a alt.binaries.b") << true;
}

void TestBookmarkPages::thePlugInOpensWhatIsForFiles()
{
    QFETCH(QString, names);
    QFETCH(bool, opens);
    m_panel->store().plugin()->showNewsgroups(QStringLiteral("Title"), newsgroups(names),
                                              HIndex::MediaFacet(0));
    QCOMPARE(opened(), opens ? QStringList{QStringLiteral("Title: ") + names} : QStringList());
}

void TestBookmarkPages::thePlugInPassesTheFacetOn_data()
{
    QTest::addColumn<int>("facet");
    for (const int number : {0, 1, 2})
        QTest::addRow("%d", number) << number;
}

void TestBookmarkPages::thePlugInPassesTheFacetOn()
{
    QFETCH(int, facet);
    m_panel->store().plugin()->showNewsgroups(
        QStringLiteral("Title"), newsgroups(QStringLiteral("alt.binaries.a")), HIndex::MediaFacet(facet));
    QCOMPARE(this->facet(), facet);
}

void TestBookmarkPages::withoutAWindowNothingOpens()
{
    m_panel->addFolder("f", "alt.binaries.a");
    m_panel->store().core().setMainWindow(nullptr);
    m_panel->click(m_panel->at({0, 0}));
    m_panel->click(m_panel->at({0}));
    QCOMPARE(opened(), QStringList());
}

QTEST_MAIN(TestBookmarkPages)
#include "tst_bookmarkpages.moc"
