// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkpanel.h"
#include "newsgroupspanel.h"
#include "stage.h"

#include <QTest>

/// A person arranges bookmarks by dragging them, and renames folders in place.
class TestBookmarkDragStories : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aBookmarkIsDraggedWithinItsFolder();
    void aBookmarkIsDraggedOntoAnotherFolder();
    void aBookmarkIsDraggedBetweenTwoOfAnotherFolder();
    void severalBookmarksAreDraggedAtOnce();
    void aFolderIsDraggedIntoAnother();
    void aBookmarkIsRefusedWhereItIsAlready();
    void aBookmarkIsRefusedAtTheTop();
    void aFolderIsRenamedByADoubleClick();
    void theKeyForRenamingDoesNothing();
};

namespace {

QString reading()
{
    return QStringLiteral("Reading");
}

QString programming()
{
    return QStringLiteral("Programming");
}

QString cpp()
{
    return QStringLiteral("comp.lang.c++");
}

QString python()
{
    return QStringLiteral("comp.lang.python");
}

QString compilers()
{
    return QStringLiteral("comp.compilers");
}

QString general()
{
    return QStringLiteral("comp.programming");
}

QStringList topFolders()
{
    return {QStringLiteral("Linux"), programming(), QStringLiteral("Pictures"), reading()};
}

QStringList readingGroups()
{
    return {QStringLiteral("alt.usage.english"), QStringLiteral("misc.books.technical"),
            QStringLiteral("misc.transport.rail"), QStringLiteral("alt.binaries.e-books.public-domain")};
}

// Within a row, from its upper to its lower edge.
constexpr double aboveRow = 0.02;
constexpr double belowRow = 0.98;

} // namespace

void TestBookmarkDragStories::aBookmarkIsDraggedWithinItsFolder()
{
    Stage stage;
    const BookmarkPanel panel(stage);
    stage.play([&panel](Person &person) { panel.logIn(person); });
    // Only what was read from the file knows which folder it is in.
    stage.restart();
    stage.play([&panel](Person &person) {
        panel.unfold(person, programming());
        person.pickUp(panel.row(programming(), cpp()));
        person.carryTo(panel.row(programming(), compilers(), belowRow));
        person.shoot(QStringLiteral("bookmarks-drag-within"));
        person.letGo();
        panel.expect(person, programming(), {python(), compilers(), cpp(), general()});
        // The file knows the place of what went up from the next change in the folder on.
        person.drag(panel.row(programming(), general()), panel.row(programming(), python(), aboveRow));
        const QStringList expected = {general(), python(), compilers(), cpp()};
        person.sees(QStringLiteral("comp.programming is the first"),
                    [&panel, &expected] { return panel.names(programming()) == expected; });
        person.rightClickOn(panel.row(programming(), cpp()));
        person.choose({QStringLiteral("Color"), QStringLiteral("Gray")});
        panel.expect(person, programming(), expected);
        panel.expect(person, QString(), topFolders());
    });
}

void TestBookmarkDragStories::aBookmarkIsDraggedOntoAnotherFolder()
{
    Stage stage;
    const BookmarkPanel panel(stage);
    stage.play([&panel](Person &person) {
        panel.logIn(person);
        panel.unfold(person, programming());
        person.pickUp(panel.row(programming(), python()));
        person.carryTo(panel.folder(reading()));
        person.shoot(QStringLiteral("bookmarks-drag-onto-folder"));
        person.letGo();
        panel.expect(person, programming(), {cpp(), compilers(), general()});
        panel.expect(person, reading(), readingGroups() + QStringList{python()});
    });
}

void TestBookmarkDragStories::aBookmarkIsDraggedBetweenTwoOfAnotherFolder()
{
    Stage stage;
    const BookmarkPanel panel(stage);
    stage.play([&panel](Person &person) {
        panel.logIn(person);
        panel.unfold(person, programming());
        panel.unfold(person, reading());
        person.drag(panel.row(programming(), cpp()), panel.row(reading(), readingGroups().at(1), belowRow));
        QStringList expected = readingGroups();
        expected.insert(2, cpp());
        panel.expect(person, reading(), expected);
        panel.expect(person, programming(), {python(), compilers(), general()});
        panel.expect(person, QString(), topFolders());
    });
}

void TestBookmarkDragStories::severalBookmarksAreDraggedAtOnce()
{
    Stage stage;
    const BookmarkPanel panel(stage);
    stage.play([&panel](Person &person) {
        panel.logIn(person);
        panel.unfold(person, programming());
        person.clickOn(panel.row(programming(), cpp()));
        person.clickOn(panel.row(programming(), compilers()), QStringLiteral("ctrl"));
        person.drag(panel.row(programming(), compilers()), panel.folder(reading()));
        panel.expect(person, programming(), {python(), general()});
        panel.expect(person, reading(), readingGroups() + QStringList{cpp(), compilers()});
    });
}

void TestBookmarkDragStories::aFolderIsDraggedIntoAnother()
{
    Stage stage;
    const BookmarkPanel panel(stage);
    stage.play([&panel](Person &person) {
        panel.logIn(person);
        panel.fold(person, programming());
        person.drag(panel.folder(programming()), panel.folder(reading()));
        panel.expect(person, QString(), {QStringLiteral("Linux"), QStringLiteral("Pictures"), reading()});
        person.sees(QStringLiteral("Programming is the last one in Reading"), [&panel] {
            return panel.names(reading()) == readingGroups() + QStringList{programming()};
        });
        person.sees(QStringLiteral("Programming is kept in Reading"),
                    [&panel] { return panel.storedNames(reading()).contains(programming()); });
        panel.unfold(person, reading());
        person.shoot(QStringLiteral("bookmarks-folder-in-folder"));
    });
}

void TestBookmarkDragStories::aBookmarkIsRefusedWhereItIsAlready()
{
    Stage stage;
    const BookmarkPanel panel(stage);
    const NewsgroupsPanel newsgroups(stage);
    const QString pictures = QStringLiteral("Pictures");
    stage.play([&panel, &newsgroups, &pictures](Person &person) {
        panel.logIn(person);
        panel.unfold(person, programming());
        newsgroups.lookFor(person, QStringLiteral("lang python"), python());
        person.drag(newsgroups.row(python()), panel.folder(pictures));
        person.sees(QStringLiteral("a second bookmark of comp.lang.python"),
                    [&panel, &pictures] { return panel.names(pictures).contains(python()); });
        const auto before = person.learns<QStringList>([&panel, &pictures] { return panel.names(pictures); });
        person.pickUp(panel.row(programming(), python()));
        person.carryTo(panel.folder(pictures));
        person.shoot(QStringLiteral("bookmarks-drop-refused"));
        person.letGo();
        panel.expect(person, programming(), {cpp(), python(), compilers(), general()});
        panel.expect(person, pictures, before);
    });
}

void TestBookmarkDragStories::aBookmarkIsRefusedAtTheTop()
{
    Stage stage;
    const BookmarkPanel panel(stage);
    stage.play([&panel](Person &person) {
        panel.logIn(person);
        panel.unfold(person, programming());
        person.drag(panel.row(programming(), python()), panel.emptyArea());
        panel.expect(person, programming(), {cpp(), python(), compilers(), general()});
        panel.expect(person, QString(), topFolders());
    });
}

void TestBookmarkDragStories::aFolderIsRenamedByADoubleClick()
{
    Stage stage;
    const BookmarkPanel panel(stage);
    stage.play([&panel](Person &person) {
        panel.logIn(person);
        person.doubleClickOn(panel.folder(reading()));
        person.sees(QStringLiteral("a field for the name"), [&panel] { return panel.isBeingRenamed(); });
        person.type(QStringLiteral("Evenings"));
        person.shoot(QStringLiteral("bookmarks-rename"));
        person.pressKey(QStringLiteral("Return"));
        QStringList expected = topFolders();
        expected.last() = QStringLiteral("Evenings");
        panel.expect(person, QString(), expected);
        // Escape leaves the name as it is.
        person.doubleClickOn(panel.folder(programming()));
        person.sees(QStringLiteral("a field for the name"), [&panel] { return panel.isBeingRenamed(); });
        person.type(QStringLiteral("Nothing"));
        person.pressKey(QStringLiteral("Escape"));
        person.sees(QStringLiteral("no field any more"), [&panel] { return !panel.isBeingRenamed(); });
        panel.expect(person, QString(), expected);
    });
}

void TestBookmarkDragStories::theKeyForRenamingDoesNothing()
{
    Stage stage;
    const BookmarkPanel panel(stage);
    stage.play([&panel](Person &person) {
        panel.logIn(person);
        person.clickOn(panel.folder(reading()));
        person.sees(QStringLiteral("Reading is selected"), [&panel] { return panel.current() == reading(); });
        person.pressKey(QStringLiteral("F2"));
        // In a field this would be the new name.
        person.type(QStringLiteral("xyz"));
        person.pressKey(QStringLiteral("Return"));
        // Keys come in their order: once this one has arrived, those before have done what they do.
        person.pressKey(QStringLiteral("Up"));
        person.sees(QStringLiteral("the folder above is selected"),
                    [&panel] { return panel.current() == topFolders().at(2); });
        panel.expect(person, QString(), topFolders());
    });
}

QTEST_MAIN(TestBookmarkDragStories)
#include "tst_bookmarkdragstories.moc"
