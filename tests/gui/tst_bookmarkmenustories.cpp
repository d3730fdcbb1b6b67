// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkpanel.h"
#include "menus.h"
#include "stage.h"

#include <QMenu>
#include <QTest>

/// A person opens the menus of the bookmarks panel, with the pointer and with the keys.
class TestBookmarkMenuStories : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theFirstLoginFillsTheEmptyPanel();
    void eachPlaceHasItsOwnMenu();
    void aFolderIsAddedAndNamedInPlace();
    void aFolderIsAddedInAFolderByTheKeys();
    void aBookmarkAndAFolderAreColoured();
    void theItemUnderThePointerIsDeletedNotTheSelectedOne();
    void theMenuKeyMeansWhatIsUnderThePointer();
};

namespace {

QString linuxFolder()
{
    return QStringLiteral("Linux");
}

QString programming()
{
    return QStringLiteral("Programming");
}

QStringList topFolders()
{
    return {linuxFolder(), programming(), QStringLiteral("Pictures"), QStringLiteral("Reading")};
}

} // namespace

void TestBookmarkMenuStories::theFirstLoginFillsTheEmptyPanel()
{
    Stage stage;
    const BookmarkPanel panel(stage);
    stage.play([&panel](Person &person) {
        panel.expect(person, QString(), {});
        person.shoot(QStringLiteral("bookmarks-empty"));
        panel.logIn(person);
        panel.expect(person, QString(), topFolders());
        panel.unfold(person, programming());
        panel.expect(person, programming(),
                     {QStringLiteral("comp.lang.c++"), QStringLiteral("comp.lang.python"),
                      QStringLiteral("comp.compilers"), QStringLiteral("comp.programming")});
        person.shoot(QStringLiteral("bookmarks-first-login"));
    });
}

void TestBookmarkMenuStories::eachPlaceHasItsOwnMenu()
{
    Stage stage;
    const BookmarkPanel panel(stage);
    const auto offers = [](Person &person, const QString &place, const QStringList &texts) {
        person.sees(QStringLiteral("the menu of %1").arg(place), [texts] { return menus::texts() == texts; });
        person.shoot(QStringLiteral("bookmarks-menu-of-%1").arg(place));
    };
    const QStringList colors = {QStringLiteral("Yellow"), QStringLiteral("Orange"), QStringLiteral("Red"),
                                QStringLiteral("Gray"),   QStringLiteral("Green"),  QStringLiteral("Cyan"),
                                QStringLiteral("Brown"),  QStringLiteral("Blue")};
    stage.play([&panel, &offers, &colors](Person &person) {
        panel.logIn(person);
        person.rightClickOn(panel.emptyArea());
        offers(person, QStringLiteral("nothing"), {QStringLiteral("Add Folder")});
        person.pressKey(QStringLiteral("Escape"));

        person.rightClickOn(panel.folder(linuxFolder()));
        offers(person, QStringLiteral("folder"),
               {QStringLiteral("Delete Folder"), QStringLiteral("Add Folder"), QString(),
                QStringLiteral("Folder Color")});
        person.clickOn(menus::entry(QStringLiteral("Folder Color")));
        offers(person, QStringLiteral("folder-colors"), colors);
        person.pressKey(QStringLiteral("Escape"));
        person.pressKey(QStringLiteral("Escape"));

        panel.unfold(person, linuxFolder());
        person.rightClickOn(panel.row(linuxFolder(), QStringLiteral("comp.os.linux.misc")));
        offers(person, QStringLiteral("bookmark"),
               {QStringLiteral("Add Bookmark"), QStringLiteral("Delete Bookmark"), QString(),
                QStringLiteral("Color")});
        person.clickOn(menus::entry(QStringLiteral("Color")));
        offers(person, QStringLiteral("bookmark-colors"), QStringList{QStringLiteral("None")} + colors);
        person.pressKey(QStringLiteral("Escape"));
        person.pressKey(QStringLiteral("Escape"));
    });
}

void TestBookmarkMenuStories::aFolderIsAddedAndNamedInPlace()
{
    Stage stage;
    const BookmarkPanel panel(stage);
    stage.play([&panel](Person &person) {
        panel.logIn(person);
        person.rightClickOn(panel.emptyArea());
        person.choose({QStringLiteral("Add Folder")});
        person.sees(QStringLiteral("a field for the name"), [&panel] { return panel.isBeingRenamed(); });
        panel.expect(person, QString(), topFolders() + QStringList{QStringLiteral("New Folder")});
        person.shoot(QStringLiteral("bookmarks-new-folder"));
        person.type(QStringLiteral("Sounds & music"));
        person.pressKey(QStringLiteral("Return"));
        panel.expect(person, QString(), topFolders() + QStringList{QStringLiteral("Sounds & music")});
    });
}

void TestBookmarkMenuStories::aFolderIsAddedInAFolderByTheKeys()
{
    Stage stage;
    const BookmarkPanel panel(stage);
    stage.play([&panel](Person &person) {
        panel.logIn(person);
        person.rightClickOn(panel.folder(programming()));
        person.chooseByKeys({QStringLiteral("Add Folder")});
        person.sees(QStringLiteral("a field for the name"), [&panel] { return panel.isBeingRenamed(); });
        person.type(QStringLiteral("Old languages"));
        person.pressKey(QStringLiteral("Return"));
        panel.expect(person, programming(),
                     {QStringLiteral("Old languages"), QStringLiteral("comp.lang.c++"),
                      QStringLiteral("comp.lang.python"), QStringLiteral("comp.compilers"),
                      QStringLiteral("comp.programming")});
        person.shoot(QStringLiteral("bookmarks-nested-folder"));
    });
}

void TestBookmarkMenuStories::aBookmarkAndAFolderAreColoured()
{
    Stage stage;
    const BookmarkPanel panel(stage);
    const QString misc = QStringLiteral("comp.os.linux.misc");
    const auto isColoured = [&panel](Person &person, const QString &name, const QString &color) {
        person.sees(QStringLiteral("%1 is kept as %2").arg(name, color), [&panel, &name, &color] {
            return panel.stored(name, QStringLiteral("bookmark_color")) == color;
        });
    };
    stage.play([&panel, &misc, &isColoured](Person &person) {
        panel.logIn(person);
        panel.unfold(person, linuxFolder());
        person.rightClickOn(panel.row(linuxFolder(), misc));
        person.choose({QStringLiteral("Color"), QStringLiteral("Green")});
        isColoured(person, misc, QStringLiteral("green"));
        person.rightClickOn(panel.row(linuxFolder(), QStringLiteral("comp.os.linux.announce")));
        person.chooseByKeys({QStringLiteral("Color"), QStringLiteral("Cyan")});
        isColoured(person, QStringLiteral("comp.os.linux.announce"), QStringLiteral("cyan"));
        person.rightClickOn(panel.folder(programming()));
        person.choose({QStringLiteral("Folder Color"), QStringLiteral("Red")});
        isColoured(person, programming(), QStringLiteral("red"));
        person.rightClickOn(panel.folder(linuxFolder()));
        person.chooseByKeys({QStringLiteral("Folder Color"), QStringLiteral("Blue")});
        isColoured(person, linuxFolder(), QStringLiteral("blue"));
        person.shoot(QStringLiteral("bookmarks-coloured"));
        person.rightClickOn(panel.row(linuxFolder(), misc));
        person.choose({QStringLiteral("Color"), QStringLiteral("None")});
        isColoured(person, misc, QString());
    });
}

void TestBookmarkMenuStories::theItemUnderThePointerIsDeletedNotTheSelectedOne()
{
    Stage stage;
    const BookmarkPanel panel(stage);
    const QString python = QStringLiteral("comp.lang.python");
    stage.play([&panel, &python](Person &person) {
        panel.logIn(person);
        panel.unfold(person, programming());
        person.clickOn(panel.row(programming(), QStringLiteral("comp.lang.c++")));
        person.sees(QStringLiteral("comp.lang.c++ is selected"),
                    [&panel] { return panel.current() == QLatin1String("comp.lang.c++"); });
        person.rightClickOn(panel.row(programming(), python));
        person.sees(QStringLiteral("a menu, and comp.lang.c++ still selected"), [&panel] {
            return !menus::texts().isEmpty() && panel.current() == QLatin1String("comp.lang.c++");
        });
        person.choose({QStringLiteral("Delete Bookmark")});
        panel.expect(person, programming(),
                     {QStringLiteral("comp.lang.c++"), QStringLiteral("comp.compilers"),
                      QStringLiteral("comp.programming")});
        person.sees(QStringLiteral("comp.lang.c++ is still selected"),
                    [&panel] { return panel.current() == QLatin1String("comp.lang.c++"); });
        person.rightClickOn(panel.folder(QStringLiteral("Reading")));
        person.chooseByKeys({QStringLiteral("Delete Folder")});
        panel.expect(person, QString(), {linuxFolder(), programming(), QStringLiteral("Pictures")});
        person.shoot(QStringLiteral("bookmarks-deleted"));
    });
}

void TestBookmarkMenuStories::theMenuKeyMeansWhatIsUnderThePointer()
{
    Stage stage;
    const BookmarkPanel panel(stage);
    stage.play([&panel](Person &person) {
        panel.logIn(person);
        panel.unfold(person, programming());
        person.clickOn(panel.row(programming(), QStringLiteral("comp.lang.c++")));
        person.pointAt(panel.folder(QStringLiteral("Reading")));
        person.pressKey(QStringLiteral("Menu"));
        person.chooseByKeys({QStringLiteral("Folder Color"), QStringLiteral("Brown")});
        person.sees(QStringLiteral("Reading is brown"), [&panel] {
            return panel.stored(QStringLiteral("Reading"), QStringLiteral("bookmark_color")) ==
                   QLatin1String("brown");
        });
    });
}

QTEST_MAIN(TestBookmarkMenuStories)
#include "tst_bookmarkmenustories.moc"
