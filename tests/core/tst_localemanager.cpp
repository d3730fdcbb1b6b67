// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/localemanager.h>

#include <halvora/stringformat.h>

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

class Sign : public QLabel {
public:
    Sign() { translate(); }

    int changes = 0;

protected:
    void changeEvent(QEvent *event) override
    {
        if (event->type() == QEvent::LanguageChange) {
            ++changes;
            translate();
        }
        QLabel::changeEvent(event);
    }

private:
    void translate() { setText(QCoreApplication::translate("LocaleTest", "Newsgroup")); }
};

QString word()
{
    return QCoreApplication::translate("LocaleTest", "Newsgroup");
}

} // namespace

class LocaleManagerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void englishNeedsNoCatalogue();
    void aLanguageReachesTheWidgets();
    void numbersAndPluralsFollow();
    void qtsOwnTextsFollow();
    void goingBackTakesTheCataloguesOut();
    void theLanguageIsRemembered();
    void aNewUserGetsTheSystemsLanguage_data();
    void aNewUserGetsTheSystemsLanguage();
    void aResetForgetsTheLanguage();
    void englishDoesWithoutADamagedCatalogue();
    void installingTheSavedLanguageAnnouncesIt();
    void aRememberedLanguageWithoutCatalogueBecomesEnglish();
    void whatCannotBeInstalledChangesNothing_data();
    void whatCannotBeInstalledChangesNothing();
    void languagesAreFoundByTheirFiles();
    void anEarlierFolderWins();
    void aSecondInstallationIsSilentButTakesNewCatalogues();

private:
    QString catalogues() const { return QStringLiteral(CATALOGUE_FOLDER); }
    void put(const QString &name);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<LocaleManager> m_locale;
};

void LocaleManagerTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_settings =
        std::make_unique<QSettings>(m_folder->filePath(QStringLiteral("test.ini")), QSettings::IniFormat);
    m_locale = std::make_unique<LocaleManager>(*m_settings);
    m_locale->setTranslationDirectories({catalogues()});
}

void LocaleManagerTest::cleanup()
{
    m_locale.reset();
    m_settings.reset();
    QLocale::setDefault(QLocale::c());
    QCOMPARE(word(), QStringLiteral("Newsgroup"));
}

void LocaleManagerTest::put(const QString &name)
{
    QVERIFY(QFile::copy(catalogues() + QStringLiteral("/localetest_de.qm"), m_folder->filePath(name)));
}

void LocaleManagerTest::englishNeedsNoCatalogue()
{
    m_locale->setTranslationDirectories({});
    QCOMPARE(m_locale->currentLanguage(), QStringLiteral("en"));
    QVERIFY(m_locale->setLanguage(QStringLiteral("en")));
    QCOMPARE(m_locale->availableLanguages(), QStringList{QStringLiteral("en")});
}

void LocaleManagerTest::aLanguageReachesTheWidgets()
{
    Sign sign;
    const QSignalSpy changed(m_locale.get(), &LocaleManager::languageChanged);
    QVERIFY(m_locale->setLanguage(QStringLiteral("de")));
    QTRY_COMPARE(sign.text(), QStringLiteral("Diskussionsgruppe"));
    QVERIFY(sign.changes > 0);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toString(), QStringLiteral("de"));
    QCOMPARE(m_locale->currentLanguage(), QStringLiteral("de"));
}

void LocaleManagerTest::numbersAndPluralsFollow()
{
    QVERIFY(m_locale->setLanguage(QStringLiteral("de")));
    QCOMPARE(QLocale().language(), QLocale::German);
    QCOMPARE(QLocale().decimalPoint(), QLatin1Char(','));
    QCOMPARE(StringFormat::byteCount(7, StringFormat::ByteFormatDefault, StringFormat::BinaryNotation, -1),
             QStringLiteral("7 Zeichen"));
}

void LocaleManagerTest::qtsOwnTextsFollow()
{
    QVERIFY(m_locale->setLanguage(QStringLiteral("de")));
    QMessageBox box(QMessageBox::Question, QString(), QString(), QMessageBox::Cancel);
    QCOMPARE(box.button(QMessageBox::Cancel)->text().remove(QLatin1Char('&')), QStringLiteral("Abbrechen"));
}

void LocaleManagerTest::goingBackTakesTheCataloguesOut()
{
    Sign sign;
    QVERIFY(m_locale->setLanguage(QStringLiteral("de")));
    QTRY_COMPARE(sign.text(), QStringLiteral("Diskussionsgruppe"));
    QVERIFY(m_locale->setLanguage(QStringLiteral("en")));
    QTRY_COMPARE(sign.text(), QStringLiteral("Newsgroup"));
    QCOMPARE(QLocale().language(), QLocale::English);
}

void LocaleManagerTest::theLanguageIsRemembered()
{
    QVERIFY(m_locale->setLanguage(QStringLiteral("de")));
    QCOMPARE(m_settings->value(QStringLiteral("Language")).toString(), QStringLiteral("de"));
    QCOMPARE(LocaleManager(*m_settings).currentLanguage(), QStringLiteral("de"));
}

void LocaleManagerTest::aNewUserGetsTheSystemsLanguage_data()
{
    QTest::addColumn<QString>("system");
    QTest::addColumn<QString>("saved");
    QTest::addColumn<QString>("language");
    const QString de = QStringLiteral("de");
    const QString en = QStringLiteral("en");
    QTest::newRow("German") << QStringLiteral("LANG=de_DE.UTF-8") << QString() << de;
    QTest::newRow("German of another country") << QStringLiteral("LANG=de_AT.UTF-8") << QString() << de;
    QTest::newRow("narrower catalogue")
        << QStringLiteral("LANG=pt_BR.UTF-8") << QString() << QStringLiteral("pt_BR");
    QTest::newRow("only another country's") << QStringLiteral("LANG=pt_PT.UTF-8") << QString() << en;
    QTest::newRow("texts only") << QStringLiteral("LC_MESSAGES=de_DE.UTF-8") << QString() << de;
    QTest::newRow("first with a catalogue") << QStringLiteral("LANGUAGE=fi:de:en") << QString() << de;
    QTest::newRow("English before it") << QStringLiteral("LANGUAGE=en:de") << QString() << en;
    QTest::newRow("no catalogue") << QStringLiteral("LANG=fi_FI.UTF-8") << QString() << en;
    QTest::newRow("none") << QStringLiteral("LANG=C") << QString() << en;
    QTest::newRow("nonsense") << QStringLiteral("LANG=../de") << QString() << en;
    QTest::newRow("chosen") << QStringLiteral("LANG=de_DE.UTF-8") << en << en;
    QTest::newRow("chosen nonsense") << QStringLiteral("LANG=de_DE.UTF-8") << QStringLiteral("*") << de;
}

void LocaleManagerTest::aNewUserGetsTheSystemsLanguage()
{
    QFETCH(QString, system);
    QFETCH(QString, saved);
    QFETCH(QString, language);
    put(QStringLiteral("localetest_de.qm"));
    put(QStringLiteral("localetest_pt_BR.qm"));
    if (!saved.isEmpty())
        m_settings->setValue(QStringLiteral("Language"), saved);
    m_settings->sync();
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"LC_ALL", "LC_MESSAGES", "LANGUAGE", "LANG"})
        environment.remove(QLatin1String(name));
    environment.insert(QStringLiteral("LANG"), QStringLiteral("en_US.UTF-8"));
    environment.insert(system.section(QLatin1Char('='), 0, 0), system.section(QLatin1Char('='), 1));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(PRINT_LANGUAGE), {m_settings->fileName(), m_folder->path()});
    QVERIFY(program.waitForFinished(120'000));
    QCOMPARE(QString::fromUtf8(program.readAllStandardOutput()).trimmed(), language);
    m_settings->sync();
    QCOMPARE(m_settings->value(QStringLiteral("Language")).toString(), saved); // the choice stays a person's
}

void LocaleManagerTest::aResetForgetsTheLanguage()
{
    QVERIFY(m_locale->setLanguage(QStringLiteral("de")));
    m_locale->reset();
    QCOMPARE(m_locale->currentLanguage(), QStringLiteral("en"));
    QVERIFY(!m_settings->contains(QStringLiteral("Language")));
    QCOMPARE(word(), QStringLiteral("Newsgroup"));
}

void LocaleManagerTest::englishDoesWithoutADamagedCatalogue()
{
    QFile file(m_folder->filePath(QStringLiteral("a_en.qm")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("no catalogue at all, only text that is longer than a catalogue's first bytes");
    file.close();
    m_locale->setTranslationDirectories({catalogues(), m_folder->path()});
    QVERIFY(m_locale->setLanguage(QStringLiteral("de")));
    QVERIFY(m_locale->setLanguage(QStringLiteral("en")));
    QCOMPARE(word(), QStringLiteral("Newsgroup"));
}

void LocaleManagerTest::installingTheSavedLanguageAnnouncesIt()
{
    m_settings->setValue(QStringLiteral("Language"), QStringLiteral("de"));
    LocaleManager next(*m_settings);
    next.setTranslationDirectories({catalogues()});
    const QSignalSpy changed(&next, &LocaleManager::languageChanged);
    QCOMPARE(word(), QStringLiteral("Newsgroup"));
    next.installSaved();
    QCOMPARE(word(), QStringLiteral("Diskussionsgruppe"));
    QCOMPARE(changed.count(), 1);
}

void LocaleManagerTest::aRememberedLanguageWithoutCatalogueBecomesEnglish()
{
    m_settings->setValue(QStringLiteral("Language"), QStringLiteral("fr"));
    LocaleManager next(*m_settings);
    next.setTranslationDirectories({catalogues()});
    next.installSaved();
    QCOMPARE(next.currentLanguage(), QStringLiteral("en"));
    QCOMPARE(m_settings->value(QStringLiteral("Language")).toString(), QStringLiteral("fr"));
}

void LocaleManagerTest::whatCannotBeInstalledChangesNothing_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("no catalogue") << QStringLiteral("fr");
    QTest::newRow("damaged catalogue") << QStringLiteral("it");
    QTest::newRow("one of two damaged") << QStringLiteral("nl");
    QTest::newRow("empty file") << QStringLiteral("pl");
    QTest::newRow("none") << QString();
    QTest::newRow("path") << QStringLiteral("../de");
    QTest::newRow("pattern") << QStringLiteral("*");
    QTest::newRow("line break") << QStringLiteral("de\n");
    QTest::newRow("capitals") << QStringLiteral("DE");
}

void LocaleManagerTest::whatCannotBeInstalledChangesNothing()
{
    QFETCH(QString, language);
    put(QStringLiteral("a_nl.qm"));
    for (const QString &name :
         {QStringLiteral("a_it.qm"), QStringLiteral("b_nl.qm"), QStringLiteral("a_pl.qm")}) {
        QFile file(m_folder->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        if (!name.contains(QStringLiteral("pl")))
            file.write("no catalogue at all, only text that is longer than a catalogue's first bytes");
    }
    m_locale->setTranslationDirectories({catalogues(), m_folder->path()});
    QVERIFY(m_locale->setLanguage(QStringLiteral("de")));

    const QSignalSpy changed(m_locale.get(), &LocaleManager::languageChanged);
    QVERIFY(!m_locale->setLanguage(language));
    QCOMPARE(m_locale->currentLanguage(), QStringLiteral("de"));
    QCOMPARE(m_settings->value(QStringLiteral("Language")).toString(), QStringLiteral("de"));
    QCOMPARE(word(), QStringLiteral("Diskussionsgruppe"));
    QCOMPARE(QLocale().language(), QLocale::German);
    QCOMPARE(changed.count(), 0);
}

void LocaleManagerTest::languagesAreFoundByTheirFiles()
{
    for (const char *name : {"halvora_fr.qm", "halvora_core_pt_BR.qm", "pinegate_zh_Hant_TW.qm",
                             "qtbase_fi.qm", "nothing.qm", "a_de.ts", "x_toolong.qm"})
        put(QString::fromLatin1(name));
    m_locale->setTranslationDirectories({catalogues(), m_folder->path(), QStringLiteral("/nowhere.example")});
    const QStringList expected{QStringLiteral("de"), QStringLiteral("en"), QStringLiteral("fr"),
                               QStringLiteral("pt_BR"), QStringLiteral("zh_Hant_TW")};
    QCOMPARE(m_locale->availableLanguages(), expected);
    QVERIFY(m_locale->setLanguage(QStringLiteral("pt_BR")));
    QCOMPARE(QLocale().country(), QLocale::Brazil);
}

void LocaleManagerTest::anEarlierFolderWins()
{
    const QString source = m_folder->filePath(QStringLiteral("late_de.ts"));
    QFile file(source);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<!DOCTYPE TS><TS version=\"2.1\" language=\"de\"><context><name>LocaleTest</name><message>"
               "<source>Newsgroup</source><translation>Gruppe</translation></message></context></TS>");
    file.close();
    QCOMPARE(QProcess::execute(QStringLiteral("lrelease"), {QStringLiteral("-silent"), source}), 0);

    m_locale->setTranslationDirectories({catalogues(), m_folder->path()});
    QVERIFY(m_locale->setLanguage(QStringLiteral("de")));
    QCOMPARE(word(), QStringLiteral("Diskussionsgruppe"));
    m_locale->setTranslationDirectories({m_folder->path(), catalogues()});
    QVERIFY(m_locale->setLanguage(QStringLiteral("de")));
    QCOMPARE(word(), QStringLiteral("Gruppe"));
}

void LocaleManagerTest::aSecondInstallationIsSilentButTakesNewCatalogues()
{
    m_locale->setTranslationDirectories({m_folder->path()});
    put(QStringLiteral("other_de.qm"));
    QVERIFY(m_locale->setLanguage(QStringLiteral("de")));
    const QSignalSpy changed(m_locale.get(), &LocaleManager::languageChanged);
    QVERIFY(m_locale->setLanguage(QStringLiteral("de")));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(word(), QStringLiteral("Diskussionsgruppe"));
}

QTEST_MAIN(LocaleManagerTest)
#include "tst_localemanager.moc"
