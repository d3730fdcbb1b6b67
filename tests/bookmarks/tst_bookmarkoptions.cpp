// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkstore.h"
#include "obstacles.h"

#include "connector/cvconnectorplugin.h"

#include <halvora/configuration.h>
#include <halvora/privatedataregistry.h>
#include <halvora/settingsregistry.h>

#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QSettings>
#include <QTest>

namespace {

QVariant storedOption()
{
    const QSettings settings(Configuration::settingsOrganization(), Configuration::settingsApplication());
    return settings.value(QStringLiteral("PDCVBookmarks"));
}

void storeOption(const QVariant &value)
{
    QSettings settings(Configuration::settingsOrganization(), Configuration::settingsApplication());
    if (value.isValid())
        settings.setValue(QStringLiteral("PDCVBookmarks"), value);
    else
        settings.remove(QStringLiteral("PDCVBookmarks"));
}

/// The option's widgets for as long as a test uses them.
class Options {
public:
    explicit Options(CVBookmarkManager &model)
        : widgets(model.createOptionWidgets())
    {
    }
    ~Options() { qDeleteAll(widgets); }
    Q_DISABLE_COPY(Options)

    QCheckBox *box() const { return qobject_cast<QCheckBox *>(widgets.value(0)); }

    QList<QWidget *> widgets;
};

} // namespace

class TestBookmarkOptions : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void cleanup();
    void theSettingsAreRegisteredByTheModelAndThePrivateDataIsNot();
    void thereIsOneOption();
    void theOptionIsReadAtTheStart();
    void onlyTheOptionOffIsStored();
    void optionsOfOthersAreNotSaved();
    void clearingFollowsTheRememberedOption();
    void clearingFollowsTheShownOption();
    void bookmarksThatCannotBeClearedKeepTheirCopies();
    void resettingForgetsTheOption();
};

void TestBookmarkOptions::cleanup()
{
    storeOption(QVariant());
}

void TestBookmarkOptions::theSettingsAreRegisteredByTheModelAndThePrivateDataIsNot()
{
    BookmarkStore store;
    QCOMPARE(store.core().settingsRegistry()->parts(), QList<ISettings *>{&store.model()});
    QVERIFY(store.core().privateData()->parts().isEmpty());
    store.close();
    QVERIFY(store.core().settingsRegistry()->parts().isEmpty());
}

void TestBookmarkOptions::thereIsOneOption()
{
    BookmarkStore store;
    const Options options(store.model());
    QCOMPARE(options.widgets.size(), 1);
    QVERIFY(options.box());
    QVERIFY(!options.box()->parent());
    QCOMPARE(options.box()->text(), QStringLiteral("Bookmarks"));
    QVERIFY(options.box()->isChecked());
}

void TestBookmarkOptions::theOptionIsReadAtTheStart()
{
    storeOption(false);
    BookmarkStore store;
    QVERIFY(!Options(store.model()).box()->isChecked());
}

void TestBookmarkOptions::onlyTheOptionOffIsStored()
{
    BookmarkStore store;
    const Options options(store.model());
    options.box()->setChecked(false);
    store.model().saveOptions(options.widgets);
    QVERIFY(storedOption().isValid());
    QVERIFY(!storedOption().toBool());
    QVERIFY(!Options(store.model()).box()->isChecked());
    options.box()->setChecked(true);
    store.model().saveOptions(options.widgets);
    QVERIFY(!storedOption().isValid());
    QVERIFY(Options(store.model()).box()->isChecked());
}

void TestBookmarkOptions::optionsOfOthersAreNotSaved()
{
    BookmarkStore store;
    store.addFolder(QStringLiteral("stays"));
    const Options options(store.model());
    options.box()->setChecked(false);
    QLabel label;
    QCheckBox second;
    second.setChecked(true);
    for (const QList<QWidget *> &widgets :
         {QList<QWidget *>{}, QList<QWidget *>{options.box(), &second}, QList<QWidget *>{&label}}) {
        store.model().saveOptions(widgets);
        store.model().clearPrivateData(widgets);
    }
    QVERIFY(!storedOption().isValid());
    QCOMPARE(store.model().rowCount(), 1);
}

void TestBookmarkOptions::clearingFollowsTheRememberedOption()
{
    BookmarkStore store;
    store.addFolder(QStringLiteral("f"));
    const Options options(store.model());
    options.box()->setChecked(false);
    store.model().saveOptions(options.widgets);
    store.model().clearPrivateData();
    QCOMPARE(store.model().rowCount(), 1);
    options.box()->setChecked(true);
    store.model().saveOptions(options.widgets);
    store.model().clearPrivateData();
    QCOMPARE(store.model().rowCount(), 0);
    QVERIFY(store.rows().isEmpty());
}

void TestBookmarkOptions::clearingFollowsTheShownOption()
{
    BookmarkStore store;
    store.addFolder(QStringLiteral("f"));
    const Options options(store.model());
    options.box()->setChecked(false);
    store.model().clearPrivateData(options.widgets);
    QCOMPARE(store.model().rowCount(), 1);
    options.box()->setChecked(true);
    store.model().clearPrivateData(options.widgets);
    QCOMPARE(store.model().rowCount(), 0);
    QVERIFY(!storedOption().isValid());
}

void TestBookmarkOptions::bookmarksThatCannotBeClearedKeepTheirCopies()
{
    BookmarkStore store;
    store.addFolder(QStringLiteral("f"));
    const QFileInfo file(store.path());
    const QDir backups(file.dir().filePath(QStringLiteral("backups")));
    QVERIFY(file.dir().mkpath(QStringLiteral("backups")));
    const QString copy =
        backups.filePath(file.completeBaseName() + QStringLiteral("-2026-11-20.backup.sqlite"));
    QVERIFY(QFile::copy(file.filePath(), copy));
    {
        const ForeignLock lock(store.path(), ForeignLock::Writes);
        QVERIFY(lock.isHeld());
        store.model().clearPrivateData();
        QVERIFY(QFile::exists(copy));
    }
    store.model().clearPrivateData();
    QVERIFY(!QFile::exists(copy));
}

void TestBookmarkOptions::resettingForgetsTheOption()
{
    storeOption(false);
    BookmarkStore store;
    store.model().resetSettings();
    QVERIFY(!storedOption().isValid());
    QVERIFY(Options(store.model()).box()->isChecked());
}

QTEST_MAIN(TestBookmarkOptions)
#include "tst_bookmarkoptions.moc"
