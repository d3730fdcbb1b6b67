// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "../translations/catalogue.h"
#include "runningprogram.h"
#include "windowtexts.h"

#include <halvora/bookmarkprovider.h>
#include <halvora/connectorplugin.h>
#include <halvora/core.h>
#include <halvora/localemanager.h>
#include <halvora/pluginmanager.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTest>

#include <algorithm>
#include <memory>

/// The whole program in its own catalogues, window by window.
class TestGerman : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void aWindowOpenedInGermanHasNothingEnglish_data() { addWindows(); }
    void aWindowOpenedInGermanHasNothingEnglish();
    void anOpenWindowFollowsThereAndBack_data() { addWindows(); }
    void anOpenWindowFollowsThereAndBack();
    void nothingIsCutOff_data() { addWindows(); }
    void nothingIsCutOff();
    void noTwoTextsShareAKey_data() { addWindows(); }
    void noTwoTextsShareAKey();
    void qtsButtonsAreGerman();
    void languagesAreCalledByTheirOwnNames();
    void oneIsNotSeveral_data();
    void oneIsNotSeveral();

private:
    static void addWindows();
    QWidget *open();
    QWidget *openSettings(int page);
    QWidget *dialog(const char *name);
    void close();
    void speak(const char *language);
    QStringList leftAsItWas(const QStringList &before, const QStringList &after) const;
    Core *core() const { return m_program->application().core(); }

    QStringList m_same; ///< texts that are called the same in both languages
    std::unique_ptr<RunningProgram> m_program;
};

namespace {

constexpr int patience = 60'000; // milliseconds

// Names, what the demo account's owner sees of it, and amounts.
bool isName(const QString &text)
{
    static const QRegularExpression name(QStringLiteral(
        "\\A(?:Pinegate|Halvora|Pinegate Unlimited|English|Deutsch|demo|&?OK|[\\d.,]+ [KMGT]iB)\\z"));
    return name.match(text).hasMatch();
}

bool hasWords(const QString &text)
{
    static const QRegularExpression word(QStringLiteral("[A-Za-z]{3}"));
    return text.contains(word);
}

QWidget *titledWindow(const char *className)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::find_if(windows.cbegin(), windows.cend(), [className](const QWidget *window) {
        return window->isVisible() && window->inherits(className);
    });
    return found == windows.cend() ? nullptr : *found;
}

} // namespace

void TestGerman::initTestCase()
{
    QCoreApplication::setApplicationName(QStringLiteral("Halvora"));
    QCoreApplication::setApplicationVersion(QStringLiteral("0.1.0"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    for (const char *file : {"halvora_de.ts", "pinegate_de.ts"}) {
        const QVector<Message> messages =
            Catalogue::read(QStringLiteral(CATALOGUE_SOURCES "/") + QLatin1String(file));
        QVERIFY(!messages.isEmpty());
        for (const Message &message : messages) {
            if (message.translations.contains(message.source))
                m_same.append(message.source);
        }
    }
}

void TestGerman::init()
{
    m_program = std::make_unique<RunningProgram>();
    m_program->open();
    core()->locale()->setTranslationDirectories({QStringLiteral(CATALOGUES)});
    speak("en");
    m_program->logIn(QStringLiteral("demo"), QStringLiteral("pinegate"));
    QTRY_COMPARE_WITH_TIMEOUT(m_program->server().connectorState(), HServer::Connected, patience);
    QTRY_VERIFY_WITH_TIMEOUT(!m_program->find<QDialog>("LoginDialog"), patience);
    QTRY_VERIFY_WITH_TIMEOUT(m_program->find<QLabel>("plan")->isVisible(), patience);
}

void TestGerman::cleanup()
{
    close();
    core()->locale()->setLanguage(QStringLiteral("en"));
    m_program->close();
    m_program.reset();
}

void TestGerman::addWindows()
{
    QTest::addColumn<QString>("window");
    for (const char *window : {"main window", "login", "general settings", "privacy settings", "clear data",
                               "reset", "statistics", "about", "add bookmarks"})
        QTest::newRow(window) << QString::fromLatin1(window);
}

void TestGerman::speak(const char *language)
{
    QVERIFY(core()->locale()->setLanguage(QLatin1String(language)));
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

QWidget *TestGerman::dialog(const char *name)
{
    return m_program->window().findChild<QDialog *>(QLatin1String(name));
}

QWidget *TestGerman::openSettings(int page)
{
    Q_EMIT m_program->window().settingsRequested();
    m_program->find<QTabWidget>("pages")->setCurrentIndex(page);
    return dialog("SettingsDialog");
}

// The window of this row.
QWidget *TestGerman::open()
{
    const QString window = QString::fromLatin1(QTest::currentDataTag());
    QWidget *opened = &m_program->window();
    if (window == QLatin1String("login")) {
        Q_EMIT m_program->window().loginRequested();
        opened = dialog("LoginDialog");
    } else if (window == QLatin1String("general settings")) {
        opened = openSettings(0);
    } else if (window == QLatin1String("privacy settings")) {
        opened = openSettings(1);
    } else if (window == QLatin1String("clear data")) {
        openSettings(1);
        m_program->find<QPushButton>("clearPrivateData")->click();
        opened = dialog("ClearDataDialog");
    } else if (window == QLatin1String("reset")) {
        openSettings(0);
        m_program->find<QPushButton>("resetSettings")->click();
        opened = dialog("ResetQuestion");
    } else if (window == QLatin1String("statistics")) {
        const QList<QLabel *> labels = m_program->window().findChildren<QLabel *>();
        for (QLabel *label : labels) {
            if (label->text().contains(QLatin1String("#stats")))
                Q_EMIT label->linkActivated(QStringLiteral("#stats"));
        }
        opened = titledWindow("StatsDialog");
    } else if (window == QLatin1String("about")) {
        m_program->application().connectorPlugin()->aboutAction()->trigger();
        opened = titledWindow("HAboutDialog");
    } else if (window == QLatin1String("add bookmarks")) {
        core()->plugin()->bookmarkProvider()->addBookmarks({QStringLiteral("alt.example")});
        opened = titledWindow("CVAddBookmarksDialog");
    }
    QCoreApplication::processEvents();
    return opened;
}

void TestGerman::close()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (qobject_cast<QDialog *>(window) && window->isVisible())
            window->close();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QStringList TestGerman::leftAsItWas(const QStringList &before, const QStringList &after) const
{
    QStringList left;
    for (const QString &text : after) {
        if (before.contains(text) && hasWords(text) && !isName(text) && !m_same.contains(text))
            left.append(text);
    }
    return left;
}

void TestGerman::aWindowOpenedInGermanHasNothingEnglish()
{
    QWidget *window = open();
    QVERIFY(window);
    const QStringList english = WindowTexts::all(*window);
    close();
    speak("de");
    window = open();
    QVERIFY(window);
    const QStringList german = WindowTexts::all(*window);
    QVERIFY(german != english);
    const QStringList left = leftAsItWas(english, german);
    QVERIFY2(left.isEmpty(), qPrintable(left.join(QLatin1Char('\n'))));
    const QString folder = QStringLiteral(PICTURE_FOLDER);
    QDir().mkpath(folder);
    QVERIFY(window->grab().save(
        QStringLiteral("%1/german-%2.png")
            .arg(folder,
                 QString::fromLatin1(QTest::currentDataTag()).replace(QLatin1Char(' '), QLatin1Char('-')))));
}

void TestGerman::anOpenWindowFollowsThereAndBack()
{
    QWidget *window = open();
    QVERIFY(window);
    // Whoever answers a question can not change the language meanwhile.
    if (qobject_cast<QMessageBox *>(window))
        return;
    const QString title = window->windowTitle();
    const QStringList english = WindowTexts::all(*window);
    speak("de");
    const QStringList german = WindowTexts::all(*window);
    QStringList left = leftAsItWas(english, german);
    QVERIFY2(left.isEmpty(), qPrintable(left.join(QLatin1Char('\n'))));
    QVERIFY(window->windowTitle() != title || isName(title));
    speak("en");
    left = leftAsItWas(german, WindowTexts::all(*window));
    QVERIFY2(left.isEmpty(), qPrintable(left.join(QLatin1Char('\n'))));
    QCOMPARE(window->windowTitle(), title);
}

void TestGerman::nothingIsCutOff()
{
    for (const char *language : {"en", "de"}) {
        speak(language);
        const QWidget *window = open();
        QVERIFY(window);
        QStringList cut;
        // What arrives after the login still moves the panels.
        const auto fits = [&cut, window] { return (cut = WindowTexts::cutOff(*window)).isEmpty(); };
        QVERIFY2(QTest::qWaitFor(fits, patience / 3), qPrintable(cut.join(QLatin1Char('\n'))));
        close();
    }
}

void TestGerman::noTwoTextsShareAKey()
{
    for (const char *language : {"en", "de"}) {
        speak(language);
        const QWidget *window = open();
        QVERIFY(window);
        const QStringList shared = WindowTexts::sharedMnemonics(*window);
        QVERIFY2(shared.isEmpty(), qPrintable(shared.join(QLatin1Char('\n'))));
        close();
    }
}

void TestGerman::qtsButtonsAreGerman()
{
    QDialogButtonBox buttons(QDialogButtonBox::Cancel);
    QCOMPARE(buttons.button(QDialogButtonBox::Cancel)->text(), QStringLiteral("Cancel"));
    speak("de");
    QCOMPARE(buttons.button(QDialogButtonBox::Cancel)->text(), QStringLiteral("Abbrechen"));
}

void TestGerman::languagesAreCalledByTheirOwnNames()
{
    for (const char *language : {"en", "de"}) {
        speak(language);
        openSettings(0);
        const auto *box = m_program->find<QComboBox>("language");
        QCOMPARE(box->itemText(box->findData(QStringLiteral("de"))), QStringLiteral("Deutsch"));
        QCOMPARE(box->itemText(box->findData(QStringLiteral("en"))), QStringLiteral("English"));
        QCOMPARE(box->count(), 2);
        QCOMPARE(box->currentData().toString(), QLatin1String(language));
        close();
    }
}

void TestGerman::oneIsNotSeveral_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("text");
    QTest::newRow("one in English") << QStringLiteral("en") << 1 << QStringLiteral("1 newsgroup loaded…");
    QTest::newRow("many in English") << QStringLiteral("en") << 1234
                                     << QStringLiteral("1,234 newsgroups loaded…");
    QTest::newRow("one in German") << QStringLiteral("de") << 1 << QStringLiteral("1 Newsgroup geladen…");
    QTest::newRow("many in German") << QStringLiteral("de") << 1234
                                    << QStringLiteral("1.234 Newsgroups geladen…");
}

void TestGerman::oneIsNotSeveral()
{
    QFETCH(QString, language);
    QFETCH(int, count);
    QFETCH(QString, text);
    speak(qPrintable(language));
    QCOMPARE(QCoreApplication::translate("HNewsgroupsPanel", "%Ln newsgroups loaded…", nullptr, count), text);
}

QTEST_MAIN(TestGerman)
#include "tst_german.moc"
