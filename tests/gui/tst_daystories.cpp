// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkpanel.h"
#include "darkpalette.h"
#include "menus.h"
#include "newsgroupspanel.h"
#include "stage.h"

#include <halvora/localemanager.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QTest>
#include <QTreeView>

/// Whole days of a person: what is arranged on one of them is there on the next.
class TestDayStories : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theFirstDay_data();
    void theFirstDay();
    void everythingIsAsItWasAfterARestart();
    void theLanguageChangesEverywhere();
};

namespace {

QString reading()
{
    return QStringLiteral("Reading");
}

QString sounds()
{
    return QStringLiteral("Sounds");
}

QString midi()
{
    return QStringLiteral("alt.binaries.sounds.midi");
}

// As it is seen while nothing else is meant by a colour behind it.
QImage pictureOf(const BookmarkPanel &panel, const QString &folder, const QString &name)
{
    QTreeView *view = panel.view();
    return view->viewport()->grab(view->visualRect(panel.index(folder, name))).toImage();
}

} // namespace

void TestDayStories::theFirstDay_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << QApplication::style()->standardPalette();
    QTest::newRow("dark") << darkPalette();
}

void TestDayStories::theFirstDay()
{
    QFETCH(QPalette, palette);
    QApplication::setPalette(palette);
    const QString look = QString::fromLatin1(QTest::currentDataTag());
    Stage stage;
    const BookmarkPanel bookmarks(stage);
    const NewsgroupsPanel newsgroups(stage);
    stage.play([&](Person &person) {
        person.shoot(QStringLiteral("day-1-begins-%1").arg(look));
        person.pressKey(QStringLiteral("alt+a"));
        person.chooseByKeys({QStringLiteral("Log In…")});
        person.clickOn(stage.widget(QStringLiteral("user")));
        person.type(QStringLiteral("demo"));
        person.pressKey(QStringLiteral("Tab"));
        person.type(QStringLiteral("pinegate"));
        person.pressKey(QStringLiteral("Return"));
        person.sees(QStringLiteral("the account's bookmarks"),
                    [&bookmarks] { return bookmarks.names(QString()).contains(reading()); });
        bookmarks.unfold(person, reading());
        person.clickOn(bookmarks.row(reading(), QStringLiteral("alt.usage.english")));
        person.sees(QStringLiteral("a page that has nothing to show"),
                    [&newsgroups] { return newsgroups.pageTitle() == QLatin1String("alt.usage.english"); });
        person.shoot(QStringLiteral("day-2-empty-newsgroup-%1").arg(look));
        person.clickOn(bookmarks.folder(QStringLiteral("Linux")));
        person.sees(QStringLiteral("the articles of a folder"), [&newsgroups] {
            return newsgroups.pageTitle() == QLatin1String("Linux") && newsgroups.articles() > 10;
        });
        person.shoot(QStringLiteral("day-3-folder-%1").arg(look));
        person.rightClickOn(bookmarks.emptyArea());
        person.choose({QStringLiteral("Add Folder")});
        person.sees(QStringLiteral("a field for the name"),
                    [&bookmarks] { return bookmarks.isBeingRenamed(); });
        person.type(sounds());
        person.pressKey(QStringLiteral("Return"));
        newsgroups.lookFor(person, QStringLiteral("sounds midi"), midi());
        person.drag(newsgroups.row(midi()), bookmarks.folder(sounds()));
        bookmarks.expect(person, sounds(), {midi()});
        bookmarks.unfold(person, sounds());
        person.rightClickOn(bookmarks.row(sounds(), midi()));
        person.choose({QStringLiteral("Color"), QStringLiteral("Orange")});
        person.rightClickOn(bookmarks.folder(sounds()));
        person.choose({QStringLiteral("Folder Color"), QStringLiteral("Cyan")});
        person.sees(QStringLiteral("the folder is cyan"), [&bookmarks] {
            return bookmarks.stored(sounds(), QStringLiteral("bookmark_color")) == QLatin1String("cyan");
        });
        person.pointAt(bookmarks.emptyArea());
        person.shoot(QStringLiteral("day-4-ends-%1").arg(look));
    });
    stage.restart();
    stage.play([&bookmarks, &look](Person &person) {
        bookmarks.expect(person, sounds(), {midi()});
        person.shoot(QStringLiteral("day-5-next-morning-%1").arg(look));
    });
    QApplication::setPalette(QApplication::style()->standardPalette());
}

void TestDayStories::everythingIsAsItWasAfterARestart()
{
    Stage stage;
    const BookmarkPanel panel(stage);
    const QString programming = QStringLiteral("Programming");
    const QStringList order = {QStringLiteral("alt.usage.english"), QStringLiteral("misc.books.technical"),
                               QStringLiteral("comp.compilers"), QStringLiteral("misc.transport.rail"),
                               QStringLiteral("alt.binaries.e-books.public-domain")};
    QImage folderBefore;
    QImage bookmarkBefore;
    stage.play([&](Person &person) {
        panel.logIn(person);
        panel.unfold(person, programming);
        panel.unfold(person, reading());
        person.drag(panel.row(programming, order.at(2)), panel.row(reading(), order.at(1), 0.98));
        panel.expect(person, reading(), order);
        person.rightClickOn(panel.row(reading(), order.at(4)));
        person.choose({QStringLiteral("Color"), QStringLiteral("Green")});
        person.rightClickOn(panel.folder(reading()));
        person.choose({QStringLiteral("Folder Color"), QStringLiteral("Red")});
        panel.fold(person, QStringLiteral("Linux"));
        panel.fold(person, programming);
        person.pointAt(panel.emptyArea());
        person.shoot(QStringLiteral("restart-before"));
        person.ask([&] {
            folderBefore = pictureOf(panel, QString(), reading());
            bookmarkBefore = pictureOf(panel, reading(), order.at(4));
        });
    });
    stage.restart();
    stage.play([&](Person &person) {
        panel.expect(person, reading(), order);
        person.sees(QStringLiteral("only Reading is open"), [&panel, &programming] {
            return panel.isUnfolded(reading()) && !panel.isUnfolded(programming) &&
                   !panel.isUnfolded(QStringLiteral("Linux")) &&
                   !panel.isUnfolded(QStringLiteral("Pictures"));
        });
        person.pointAt(panel.emptyArea());
        person.sees(QStringLiteral("the same red folder"),
                    [&] { return pictureOf(panel, QString(), reading()) == folderBefore; });
        person.sees(QStringLiteral("the same green bookmark"),
                    [&] { return pictureOf(panel, reading(), order.at(4)) == bookmarkBefore; });
        person.shoot(QStringLiteral("restart-after"));
    });
}

void TestDayStories::theLanguageChangesEverywhere()
{
    Stage stage;
    const BookmarkPanel bookmarks(stage);
    const NewsgroupsPanel newsgroups(stage);
    LocaleManager *locale = stage.program().application().core()->locale();
    locale->setTranslationDirectories({QStringLiteral(TEST_CATALOGUES)});
    const auto titleOf = [&stage](const char *dock) {
        return stage.program().find<QDockWidget>(dock)->windowTitle();
    };
    stage.play([&](Person &person) {
        bookmarks.logIn(person);
        bookmarks.unfold(person, reading());
        person.clickOn(bookmarks.row(reading(), QStringLiteral("alt.usage.english")));
        person.pressKey(QStringLiteral("ctrl+comma"));
        person.clickOn(stage.widget(QStringLiteral("language")));
        person.sees(QStringLiteral("the languages"), [] { return QApplication::activePopupWidget(); });
        person.pressKey(QStringLiteral("Down"));
        person.pressKey(QStringLiteral("Return"));
        person.sees(QStringLiteral("Esperanto is chosen"), [&stage] {
            return stage.program().find<QComboBox>("language")->currentData() == QLatin1String("eo");
        });
        person.pressKey(QStringLiteral("Return"));
        person.sees(QStringLiteral("the panels in Esperanto"), [&titleOf] {
            return titleOf("CVBookmarksDock") == QStringLiteral("Legosignoj") &&
                   titleOf("NewsgroupsDock") == QStringLiteral("Novaĵgrupoj") &&
                   titleOf("InfoToolWidget") == QStringLiteral("Via konto");
        });
        person.sees(QStringLiteral("the fields in Esperanto"), [&stage] {
            return stage.program().find<QLineEdit>("newsgroupFilter")->placeholderText() ==
                       QStringLiteral("Filtri per vortoj") &&
                   stage.program().find<QComboBox>("articleKind")->currentText() ==
                       QStringLiteral("Ĉiuj artikoloj");
        });
        person.sees(QStringLiteral("the first page in Esperanto"),
                    [&newsgroups] { return newsgroups.pageTitles().first() == QStringLiteral("Hejmo"); });
        person.pressKey(QStringLiteral("alt+v"));
        person.chooseByKeys({QStringLiteral("Legosignoj")});
        person.pressKey(QStringLiteral("alt+v"));
        person.chooseByKeys({QStringLiteral("Legosignoj")});
        person.rightClickOn(bookmarks.row(reading(), QStringLiteral("alt.usage.english")));
        person.clickOn(menus::entry(QStringLiteral("Koloro")));
        person.sees(QStringLiteral("the colours in Esperanto"), [] {
            return menus::texts().mid(0, 3) ==
                   QStringList({QStringLiteral("Neniu"), QStringLiteral("Flava"), QStringLiteral("Oranĝa")});
        });
        person.shoot(QStringLiteral("language-menu"));
        person.pressKey(QStringLiteral("Escape"));
        person.pressKey(QStringLiteral("Escape"));
        newsgroups.lookFor(person, QStringLiteral("midi"), midi());
        person.clickOn(newsgroups.row(midi()));
        person.clickOn(stage.widget(QStringLiteral("addButton")));
        person.sees(QStringLiteral("the dialog in Esperanto"), [&newsgroups] {
            return newsgroups.dialog() &&
                   newsgroups.dialog()->windowTitle() == QStringLiteral("Aldoni legosignojn");
        });
        person.shoot(QStringLiteral("language-dialog"));
        person.ask([locale] { locale->setLanguage(QStringLiteral("en")); });
        person.sees(QStringLiteral("the open dialog in English"), [&newsgroups] {
            return newsgroups.dialog()->windowTitle() == QStringLiteral("Add Bookmarks") &&
                   newsgroups.dialog()->findChild<QLabel *>()->text() ==
                       QStringLiteral("Select the location for the bookmarks:");
        });
        person.clickOn(newsgroups.dialogButton(QStringLiteral("Cancel")));
        person.sees(QStringLiteral("the panel in English"),
                    [&titleOf] { return titleOf("CVBookmarksDock") == QStringLiteral("Bookmarks"); });
    });
}

QTEST_MAIN(TestDayStories)
#include "tst_daystories.moc"
