// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "recordingprivatedata.h"
#include "settingsdialog.h"
#include "testconnectorplugin.h"

#include <halvora/connector.h>
#include <halvora/core.h>
#include <halvora/hnntpdistributor.h>
#include <halvora/isettings.h>
#include <halvora/localemanager.h>
#include <halvora/privatedataregistry.h>
#include <halvora/settingsregistry.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

namespace {

class RecordingSettings : public ISettings {
public:
    void resetSettings() override
    {
        ++resets;
        if (onReset)
            onReset();
    }

    std::function<void()> onReset;
    int resets = 0;
};

/// A part that a registry forgets when it goes.
class MortalPrivateData final : public QObject, public RecordingPrivateData {
public:
    using RecordingPrivateData::RecordingPrivateData;
};

class MortalSettings final : public QObject, public RecordingSettings {};

constexpr const char *Words = "Words searched for";
constexpr const char *Groups = "Newsgroups";
constexpr const char *Files = "Names of files";

/// A core with two parts that keep private data, and the dialog that shows them.
class Settings {
public:
    Settings()
        : bookmarks({Groups})
        , search({Words, Files})
        , plugin(&core)
    {
        core.locale()->setTranslationDirectories({QStringLiteral(TEST_CATALOGUES)});
        core.privateData()->registerPrivateData(&bookmarks);
        core.privateData()->registerPrivateData(&search);
        core.settingsRegistry()->registerSettings(&part);
    }
    ~Settings()
    {
        delete dialog;
        core.locale()->setLanguage(QStringLiteral("en"));
        core.privateData()->clear();
        core.settingsRegistry()->clear();
    }
    Q_DISABLE_COPY(Settings)

    void open()
    {
        dialog = new SettingsDialog(&core, &plugin, nullptr);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->open();
    }
    template <typename T> T *find(const char *name) const
    {
        return dialog->findChild<T *>(QLatin1String(name));
    }
    // No window manager does so when the dialog before it closes.
    void activate() const
    {
        dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dialog));
    }
    void click(const char *name) const { find<QPushButton>(name)->click(); }
    void press(QDialogButtonBox::StandardButton button) const
    {
        const QPointer<SettingsDialog> shown = dialog;
        dialog->findChild<QDialogButtonBox *>(QString(), Qt::FindDirectChildrenOnly)->button(button)->click();
        QTRY_VERIFY(!shown);
    }
    HNntpDistributor &distributor() const { return *plugin.connector()->distributor(); }

    QTemporaryDir profile;
    Core core{profile.path()};
    RecordingPrivateData bookmarks;
    RecordingPrivateData search;
    RecordingSettings part;
    TestConnectorPlugin plugin;
    QPointer<SettingsDialog> dialog;
};

/// Presses Alt and @p key in @p window until @p done. A key that comes before the window is ready is lost.
bool pressUntil(const QPointer<QWidget> &window, Qt::Key key, const std::function<bool()> &done)
{
    for (int attempt = 0; attempt < 10 && window && !done(); ++attempt) {
        if (!window->isActiveWindow())
            window->activateWindow();
        if (!QTest::qWaitForWindowActive(window))
            continue;
        QCoreApplication::processEvents(); // it may still be on its way to be the active one once more
        QTest::keyClick(window, key, Qt::AltModifier);
        if (QTest::qWaitFor(done, 10'000))
            return true;
    }
    return done();
}

} // namespace

class TestSettingsDialog : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theProgramsOwnSettingsHoldAfterOk();
    void okHandsEachPartItsOwnWidgets();
    void cancelSavesNothing();
    void theWidgetsGoWithTheDialog();
    void clearingHandsEachPartWidgetsOfItsOwn();
    void cancellingTheClearingDeletesNothing();
    void returnInTheClearingDialogDeletesNothing();
    void aPartThatWentIsNotAsked();
    void aResetAsksFirst();
    void aResetBringsEverythingBackAndShowsIt();
    void aPartThatGoesDuringAResetIsNotAsked();
    void choicesOutliveAChangeOfTheLanguage();
    void withoutPartsThePageSaysSo();
    void aPartWithoutOptionsIsNoPrivateData();
    void everythingIsReachedFromTheKeyboard();
};

void TestSettingsDialog::theProgramsOwnSettingsHoldAfterOk()
{
    Settings settings;
    settings.open();
    QCOMPARE(settings.find<QSpinBox>("connections")->value(), 20);
    settings.find<QSpinBox>("connections")->setValue(7);
    auto *language = settings.find<QComboBox>("language");
    language->setCurrentIndex(language->findData(QStringLiteral("eo")));
    settings.press(QDialogButtonBox::Ok);
    QCOMPARE(settings.distributor().wantedConnections(), 7);
    QCOMPARE(settings.core.locale()->currentLanguage(), QStringLiteral("eo"));
}

void TestSettingsDialog::okHandsEachPartItsOwnWidgets()
{
    Settings settings;
    settings.open();
    QCOMPARE(settings.bookmarks.made.size(), 1);
    QCOMPARE(settings.search.made.size(), 1);
    settings.search.box(1)->setChecked(false);
    settings.press(QDialogButtonBox::Ok);
    QCOMPARE(settings.bookmarks.saved, settings.bookmarks.made);
    QCOMPARE(settings.search.saved, settings.search.made);
    QCOMPARE(settings.bookmarks.remembered, QVector<bool>({true}));
    QCOMPARE(settings.search.remembered, QVector<bool>({true, false}));
    QVERIFY(settings.bookmarks.cleared.isEmpty() && settings.search.cleared.isEmpty());
}

void TestSettingsDialog::cancelSavesNothing()
{
    Settings settings;
    settings.open();
    settings.search.box(0)->setChecked(false);
    settings.find<QSpinBox>("connections")->setValue(7);
    settings.press(QDialogButtonBox::Cancel);
    QVERIFY(settings.bookmarks.saved.isEmpty() && settings.search.saved.isEmpty());
    QCOMPARE(settings.distributor().wantedConnections(), 20);
    settings.open();
    QVERIFY(settings.search.box(0)->isChecked());
}

void TestSettingsDialog::theWidgetsGoWithTheDialog()
{
    Settings settings;
    settings.open();
    const RecordingPrivateData::Widgets made = settings.search.made.last();
    for (const QWidget *widget : made)
        QVERIFY(settings.dialog->isAncestorOf(widget));
    settings.click("clearPrivateData");
    QCOMPARE(settings.search.alive(), 6);
    settings.find<QPushButton>("clear")->click();
    QTRY_COMPARE(settings.search.alive(), 3);
    delete settings.dialog;
    QCOMPARE(settings.search.alive(), 0);
    QCOMPARE(settings.bookmarks.alive(), 0);
}

void TestSettingsDialog::clearingHandsEachPartWidgetsOfItsOwn()
{
    Settings settings;
    settings.search.remembered = {false, true};
    settings.open();
    settings.search.box(1)->setChecked(false); // chosen on the page, and not yet remembered
    settings.click("clearPrivateData");
    QCOMPARE(settings.search.made.size(), 2);
    QVERIFY(!settings.search.box(0)->isChecked());
    QVERIFY(settings.search.box(1)->isChecked());
    settings.bookmarks.box(0)->setChecked(false);
    settings.find<QPushButton>("clear")->click();
    QCOMPARE(settings.bookmarks.cleared, QVector({settings.bookmarks.made.at(1)}));
    QCOMPARE(settings.search.cleared, QVector({settings.search.made.at(1)}));
    QCOMPARE(settings.bookmarks.deletedKinds, QVector<bool>({false}));
    QCOMPARE(settings.search.deletedKinds, QVector<bool>({false, true}));
    QCOMPARE(settings.search.clearedAsRemembered, 0);
    QVERIFY(settings.bookmarks.saved.isEmpty() && settings.search.saved.isEmpty());
    QTRY_VERIFY(!settings.find<QDialog>("ClearDataDialog"));
    // The page is as it was left.
    QVERIFY(!qobject_cast<QCheckBox *>(settings.search.made.at(0).at(1))->isChecked());
    settings.press(QDialogButtonBox::Ok);
    QCOMPARE(settings.search.saved, QVector({settings.search.made.at(0)}));
}

void TestSettingsDialog::cancellingTheClearingDeletesNothing()
{
    Settings settings;
    settings.open();
    settings.click("clearPrivateData");
    settings.find<QDialog>("ClearDataDialog")->reject();
    QTRY_VERIFY(!settings.find<QDialog>("ClearDataDialog"));
    QVERIFY(settings.bookmarks.cleared.isEmpty() && settings.search.cleared.isEmpty());
    QCOMPARE(settings.search.clearedAsRemembered, 0);
    QVERIFY(settings.dialog->isVisible());
}

void TestSettingsDialog::returnInTheClearingDialogDeletesNothing()
{
    Settings settings;
    settings.open();
    settings.click("clearPrivateData");
    auto *question = settings.find<QDialog>("ClearDataDialog");
    QVERIFY(QTest::qWaitForWindowActive(question));
    settings.find<QPushButton>("clear")->setFocus();
    QTest::keyClick(settings.find<QPushButton>("clear"), Qt::Key_Return);
    QTRY_VERIFY(!settings.find<QDialog>("ClearDataDialog"));
    QVERIFY(settings.search.cleared.isEmpty());
}

void TestSettingsDialog::aPartThatWentIsNotAsked()
{
    Settings settings;
    auto gone = std::make_unique<MortalPrivateData>(QVector<const char *>{Files});
    auto cleared = std::make_unique<MortalPrivateData>(QVector<const char *>{Files});
    settings.core.privateData()->registerPrivateData(gone.get());
    settings.core.privateData()->registerPrivateData(cleared.get());
    settings.open();
    settings.click("clearPrivateData");
    gone.reset();
    settings.find<QPushButton>("clear")->click();
    QCOMPARE(cleared->cleared.size(), 1);
    QCOMPARE(settings.search.cleared.size(), 1);
    cleared.reset();
    settings.press(QDialogButtonBox::Ok);
    QCOMPARE(settings.search.saved.size(), 1);
}

void TestSettingsDialog::aResetAsksFirst()
{
    Settings settings;
    settings.distributor().setWantedConnections(7);
    settings.open();
    settings.click("resetSettings");
    auto *question = settings.find<QMessageBox>("ResetQuestion");
    QCOMPARE(question->defaultButton(), question->button(QMessageBox::Cancel));
    question->button(QMessageBox::Cancel)->click();
    QTRY_VERIFY(!settings.find<QMessageBox>("ResetQuestion"));
    QCOMPARE(settings.part.resets, 0);
    QCOMPARE(settings.distributor().wantedConnections(), 7);
    QVERIFY(settings.dialog->isVisible());
}

void TestSettingsDialog::aResetBringsEverythingBackAndShowsIt()
{
    Settings settings;
    settings.distributor().setWantedConnections(7);
    QVERIFY(settings.core.locale()->setLanguage(QStringLiteral("eo")));
    settings.search.remembered = {false, false};
    settings.part.onReset = [&settings] { settings.search.remembered = {true, true}; };
    settings.open();
    QVERIFY(!settings.search.box(0)->isChecked());
    settings.click("resetSettings");
    settings.find<QPushButton>("reset")->click();
    QCOMPARE(settings.part.resets, 1);
    QVERIFY(settings.search.box(0)->isChecked());
    QCOMPARE(settings.search.alive(), 3);
    QCOMPARE(settings.find<QSpinBox>("connections")->value(), 20);
    QCOMPARE(settings.distributor().wantedConnections(), 20);
    QCOMPARE(settings.find<QComboBox>("language")->currentData().toString(), QStringLiteral("en"));
    QCOMPARE(settings.core.locale()->currentLanguage(), QStringLiteral("en"));
    QTRY_COMPARE(settings.search.box(0)->text(), QLatin1String(Words));
    QVERIFY(settings.search.box(0)->isChecked());
    const RecordingPrivateData::Widgets shown = settings.search.made.last();
    settings.press(QDialogButtonBox::Ok);
    QCOMPARE(settings.search.saved, QVector({shown}));
    QCOMPARE(settings.distributor().wantedConnections(), 20);
}

void TestSettingsDialog::aPartThatGoesDuringAResetIsNotAsked()
{
    Settings settings;
    auto mortal = std::make_unique<MortalSettings>();
    RecordingSettings last;
    settings.core.settingsRegistry()->registerSettings(mortal.get());
    settings.core.settingsRegistry()->registerSettings(&last);
    settings.part.onReset = [&mortal] { mortal.reset(); };
    settings.open();
    settings.click("resetSettings");
    settings.find<QPushButton>("reset")->click();
    QCOMPARE(settings.part.resets, 1);
    QCOMPARE(last.resets, 1);
}

void TestSettingsDialog::choicesOutliveAChangeOfTheLanguage()
{
    Settings settings;
    settings.open();
    settings.search.box(0)->setChecked(false);
    settings.search.days()->setValue(31);
    QVERIFY(settings.core.locale()->setLanguage(QStringLiteral("eo")));
    QTRY_COMPARE(settings.search.box(0)->text(), QStringLiteral("Serĉitaj vortoj"));
    QCOMPARE(settings.find<QLabel>("privacyIntro")->text(),
             QStringLiteral("Kio foriras, kiam privataj datumoj estas viŝataj:"));
    QVERIFY(!settings.search.box(0)->isChecked());
    QVERIFY(settings.search.box(1)->isChecked());
    QCOMPARE(settings.search.days()->value(), 31);
    QCOMPARE(settings.search.alive(), 3);
    const RecordingPrivateData::Widgets shown = settings.search.made.last();
    settings.press(QDialogButtonBox::Ok);
    QCOMPARE(settings.search.saved, QVector({shown}));
    QCOMPARE(settings.search.remembered, QVector<bool>({false, true}));
}

void TestSettingsDialog::withoutPartsThePageSaysSo()
{
    Settings settings;
    settings.core.privateData()->clear();
    settings.open();
    settings.find<QTabWidget>("pages")->setCurrentIndex(1);
    QVERIFY(settings.find<QLabel>("privacyIntro")->isVisible());
    QCOMPARE(settings.find<QLabel>("privacyIntro")->text(),
             QStringLiteral("No part of the program keeps private data."));
    QVERIFY(!settings.find<QPushButton>("clearPrivateData")->isVisible());
    settings.press(QDialogButtonBox::Ok);
}

void TestSettingsDialog::aPartWithoutOptionsIsNoPrivateData()
{
    class Silent final : public RecordingPrivateData {
    public:
        Silent()
            : RecordingPrivateData({})
        {
        }
        QList<QWidget *> createOptionWidgets() override { return {}; }
    } silent;
    Settings settings;
    settings.core.privateData()->clear();
    settings.core.privateData()->registerPrivateData(&silent);
    settings.open();
    settings.find<QTabWidget>("pages")->setCurrentIndex(1);
    QVERIFY(!settings.find<QPushButton>("clearPrivateData")->isVisible());
    settings.press(QDialogButtonBox::Ok);
    QCOMPARE(silent.saved, QVector({RecordingPrivateData::Widgets()}));
}

void TestSettingsDialog::everythingIsReachedFromTheKeyboard()
{
    Settings settings;
    settings.open();
    settings.activate();
    const auto *pages = settings.find<QTabWidget>("pages");
    QTest::keyClick(settings.dialog, Qt::Key_P, Qt::AltModifier);
    QCOMPARE(pages->currentIndex(), 1);
    const auto isClearing = [&settings] { return settings.find<QDialog>("ClearDataDialog") != nullptr; };
    QVERIFY(pressUntil(settings.dialog.data(), Qt::Key_E, isClearing));
    QVERIFY(pressUntil(settings.find<QDialog>("ClearDataDialog"), Qt::Key_L,
                       [isClearing] { return !isClearing(); }));
    QCOMPARE(settings.search.cleared.size(), 1);
    const auto isAsking = [&settings] { return settings.find<QMessageBox>("ResetQuestion") != nullptr; };
    QVERIFY(pressUntil(settings.dialog.data(), Qt::Key_R, isAsking));
    QVERIFY(pressUntil(settings.find<QMessageBox>("ResetQuestion"), Qt::Key_R,
                       [isAsking] { return !isAsking(); }));
    QCOMPARE(settings.part.resets, 1);
    settings.activate();
    QTest::keyClick(settings.dialog, Qt::Key_G, Qt::AltModifier);
    QCOMPARE(pages->currentIndex(), 0);
    QTest::keyClick(settings.dialog, Qt::Key_C, Qt::AltModifier);
    QVERIFY(settings.find<QSpinBox>("connections")->hasFocus());
}

QTEST_MAIN(TestSettingsDialog)
#include "tst_settingsdialog.moc"
