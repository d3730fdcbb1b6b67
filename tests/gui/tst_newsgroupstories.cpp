// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkpanel.h"
#include "newsgroupspanel.h"
#include "stage.h"

#include <QDialog>
#include <QTest>

/// A person reads the newsgroups of her bookmarks, and bookmarks others.
class TestNewsgroupStories : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aClickOnABookmarkOpensItsNewsgroup();
    void aClickOnAFolderOpensAllItsNewsgroups();
    void aNewsgroupIsDraggedIntoAFolderOnce();
    void aBookmarkIsAddedByTheDialog();
    void theDialogAddsBehindABookmark();
    void aCancelledDialogAddsNothing();
};

namespace {

QString programming()
{
    return QStringLiteral("Programming");
}

QString fortran()
{
    return QStringLiteral("comp.lang.fortran");
}

QStringList programmingGroups()
{
    return {QStringLiteral("comp.lang.c++"), QStringLiteral("comp.lang.python"),
            QStringLiteral("comp.compilers"), QStringLiteral("comp.programming")};
}

// From the menu of a bookmark to the dialog.
void askToAdd(Person &person, Stage &stage, const BookmarkPanel &bookmarks, const NewsgroupsPanel &newsgroups)
{
    bookmarks.logIn(person);
    bookmarks.unfold(person, programming());
    person.rightClickOn(bookmarks.row(programming(), QStringLiteral("comp.lang.c++")));
    person.choose({QStringLiteral("Add Bookmark")});
    person.sees(QStringLiteral("the newsgroups, ready to be typed in"),
                [&newsgroups] { return newsgroups.isInFront() && newsgroups.isFilterFocused(); });
    newsgroups.lookFor(person, QStringLiteral("lang fortran"), fortran());
    person.clickOn(newsgroups.row(fortran()));
    person.clickOn(stage.widget(QStringLiteral("addButton")));
    person.sees(QStringLiteral("the dialog"), [&newsgroups] { return newsgroups.dialog(); });
}

} // namespace

void TestNewsgroupStories::aClickOnABookmarkOpensItsNewsgroup()
{
    Stage stage;
    const BookmarkPanel bookmarks(stage);
    const NewsgroupsPanel newsgroups(stage);
    stage.play([&bookmarks, &newsgroups](Person &person) {
        const QString python = QStringLiteral("comp.lang.python");
        const QString misc = QStringLiteral("comp.lang.c++");
        bookmarks.logIn(person);
        bookmarks.unfold(person, programming());
        person.clickOn(bookmarks.row(programming(), python));
        person.sees(QStringLiteral("the page of comp.lang.python"),
                    [&] { return newsgroups.pageTitle() == python && newsgroups.articles() > 0; });
        person.shoot(QStringLiteral("newsgroup-page"));
        person.clickOn(bookmarks.row(programming(), misc));
        person.sees(QStringLiteral("the page of comp.lang.c++"),
                    [&] { return newsgroups.pageTitle() == misc && newsgroups.articles() == 4; });
        person.clickOn(bookmarks.row(programming(), python));
        person.sees(QStringLiteral("the first page again, and no third one"), [&] {
            return newsgroups.pageTitle() == python &&
                   newsgroups.pageTitles().mid(1) == QStringList({python, misc});
        });
    });
}

void TestNewsgroupStories::aClickOnAFolderOpensAllItsNewsgroups()
{
    Stage stage;
    const BookmarkPanel bookmarks(stage);
    const NewsgroupsPanel newsgroups(stage);
    stage.play([&bookmarks, &newsgroups](Person &person) {
        bookmarks.logIn(person);
        person.clickOn(bookmarks.folder(QStringLiteral("Pictures")));
        person.sees(QStringLiteral("the pictures of several newsgroups"), [&newsgroups] {
            return newsgroups.pageTitle() == QLatin1String("Pictures") && newsgroups.articles() > 60;
        });
        person.shoot(QStringLiteral("newsgroup-page-of-folder"));
    });
}

void TestNewsgroupStories::aNewsgroupIsDraggedIntoAFolderOnce()
{
    Stage stage;
    const BookmarkPanel bookmarks(stage);
    const NewsgroupsPanel newsgroups(stage);
    stage.play([&bookmarks, &newsgroups](Person &person) {
        bookmarks.logIn(person);
        bookmarks.unfold(person, programming());
        newsgroups.lookFor(person, QStringLiteral("fortran"), fortran());
        person.pickUp(newsgroups.row(fortran()));
        person.carryTo(bookmarks.folder(programming()));
        person.shoot(QStringLiteral("newsgroup-drag"));
        person.letGo();
        const QStringList expected = programmingGroups() + QStringList{fortran()};
        bookmarks.expect(person, programming(), expected);
        person.shoot(QStringLiteral("newsgroup-bookmarked"));
        person.drag(newsgroups.row(fortran()), bookmarks.folder(programming()));
        bookmarks.expect(person, programming(), expected);
        person.drag(newsgroups.row(fortran()), bookmarks.emptyArea());
        bookmarks.expect(
            person, QString(),
            {QStringLiteral("Linux"), programming(), QStringLiteral("Pictures"), QStringLiteral("Reading")});
    });
}

void TestNewsgroupStories::aBookmarkIsAddedByTheDialog()
{
    Stage stage;
    const BookmarkPanel bookmarks(stage);
    const NewsgroupsPanel newsgroups(stage);
    stage.play([&](Person &person) {
        askToAdd(person, stage, bookmarks, newsgroups);
        person.shoot(QStringLiteral("add-bookmarks"));
        person.clickOn(newsgroups.dialogButton(QStringLiteral("OK")));
        person.clickOn(newsgroups.dialogRow(programming()));
        person.sees(QStringLiteral("the dialog is still there, and the folder is picked"),
                    [&newsgroups] { return newsgroups.dialogChoice() == programming(); });
        bookmarks.expect(person, programming(), programmingGroups());
        person.clickOn(newsgroups.dialogButton(QStringLiteral("OK")));
        bookmarks.expect(person, programming(), QStringList{fortran()} + programmingGroups());
        person.sees(QStringLiteral("the dialog is gone"), [&newsgroups] { return !newsgroups.dialog(); });
        person.shoot(QStringLiteral("add-bookmarks-done"));
    });
}

void TestNewsgroupStories::theDialogAddsBehindABookmark()
{
    Stage stage;
    const BookmarkPanel bookmarks(stage);
    const NewsgroupsPanel newsgroups(stage);
    stage.play([&](Person &person) {
        askToAdd(person, stage, bookmarks, newsgroups);
        person.clickOn(newsgroups.dialogRow(programming()));
        person.pressKey(QStringLiteral("Right")); // opens the folder
        person.pressKey(QStringLiteral("Down"));
        person.pressKey(QStringLiteral("Return"));
        QStringList expected = programmingGroups();
        expected.insert(1, fortran());
        bookmarks.expect(person, programming(), expected);
    });
}

void TestNewsgroupStories::aCancelledDialogAddsNothing()
{
    Stage stage;
    const BookmarkPanel bookmarks(stage);
    const NewsgroupsPanel newsgroups(stage);
    stage.play([&](Person &person) {
        askToAdd(person, stage, bookmarks, newsgroups);
        person.clickOn(newsgroups.dialogRow(programming()));
        person.clickOn(newsgroups.dialogButton(QStringLiteral("Cancel")));
        person.sees(QStringLiteral("the dialog is gone"), [&newsgroups] { return !newsgroups.dialog(); });
        bookmarks.expect(person, programming(), programmingGroups());
    });
}

QTEST_MAIN(TestNewsgroupStories)
#include "tst_newsgroupstories.moc"
