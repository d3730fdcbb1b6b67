// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/localemanager.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QRegularExpression>
#include <QSettings>
#include <QTranslator>

#include <utility>

namespace {

const char *const LanguagePattern = "[a-z]{2,3}(?:_[A-Z][a-z]{3})?(?:_(?:[A-Z]{2}|[0-9]{3}))?";

QString key()
{
    return QStringLiteral("Language");
}

QString english()
{
    return QStringLiteral("en");
}

bool isLanguage(const QString &language)
{
    static const QRegularExpression valid(QStringLiteral("\\A%1\\z").arg(QLatin1String(LanguagePattern)));
    return valid.match(language).hasMatch();
}

QString qtCatalogue(const QString &language)
{
    return QStringLiteral("%1/qtbase_%2.qm")
        .arg(QLibraryInfo::location(QLibraryInfo::TranslationsPath), language);
}

/// The files of @p language, in the order in which they are installed; the last one is asked first.
QStringList catalogueFiles(const QStringList &directories, const QString &language)
{
    QStringList files;
    for (const QString &directory : directories) {
        const QFileInfoList found =
            QDir(directory).entryInfoList({QStringLiteral("*_%1.qm").arg(language)}, QDir::Files, QDir::Name);
        for (const QFileInfo &file : found)
            files.prepend(file.absoluteFilePath());
    }
    return files;
}

/// @p name of the system, such as "de-DE", as catalogues are called, from the narrowest to the widest.
QStringList catalogueNames(const QString &name)
{
    QStringList parts = name.split(QLatin1Char('-'));
    QStringList names;
    for (; !parts.isEmpty(); parts.removeLast())
        names.append(parts.join(QLatin1Char('_')));
    return names;
}

/// The user's own number and date formats, when the language is theirs.
QLocale localeFor(const QString &language)
{
    const QLocale system = QLocale::system();
    const QLocale plain(language);
    return system.language() == plain.language() ? system : plain;
}

} // namespace

LocaleManager::LocaleManager(QSettings &settings)
    : m_settings(settings)
    , m_installed(english())
{
    const QString saved = settings.value(key(), english()).toString();
    m_language = isLanguage(saved) ? saved : english();
}

LocaleManager::~LocaleManager() = default;

QString LocaleManager::currentLanguage() const
{
    return m_language;
}

QStringList LocaleManager::availableLanguages() const
{
    static const QRegularExpression catalogue(
        QStringLiteral("\\A.+?_(%1)\\.qm\\z").arg(QLatin1String(LanguagePattern)));
    QStringList languages{english()};
    for (const QString &directory : m_directories) {
        const QStringList names = QDir(directory).entryList({QStringLiteral("*.qm")}, QDir::Files);
        for (const QString &name : names) {
            const auto match = catalogue.match(name);
            if (match.hasMatch() && !name.startsWith(QLatin1String("qt")))
                languages.append(match.captured(1));
        }
    }
    languages.removeDuplicates();
    languages.sort();
    return languages;
}

QString LocaleManager::systemLanguage() const
{
    const QStringList available = availableLanguages();
    const QStringList wanted = QLocale::system().uiLanguages();
    for (const QString &language : wanted) {
        const QStringList names = catalogueNames(language);
        for (const QString &name : names) {
            if (available.contains(name))
                return name;
        }
    }
    return english();
}

void LocaleManager::setTranslationDirectories(const QStringList &directories)
{
    m_directories = directories;
}

bool LocaleManager::setLanguage(const QString &language)
{
    if (!install(language))
        return false;
    m_settings.setValue(key(), language);
    return true;
}

void LocaleManager::installSaved()
{
    const QString saved = m_settings.value(key()).toString();
    if (!install(isLanguage(saved) ? saved : systemLanguage()))
        install(english());
}

void LocaleManager::reset()
{
    m_settings.remove(key());
    installSaved();
}

bool LocaleManager::install(const QString &language)
{
    Catalogues catalogues;
    if (!isLanguage(language) || !load(language, &catalogues))
        return false;
    // Before the events of the new catalogues go out, everything that formats numbers has to be ready.
    QLocale::setDefault(localeFor(language));
    m_catalogues.clear(); // a translator takes itself out
    m_catalogues = std::move(catalogues);
    for (const auto &catalogue : m_catalogues)
        QCoreApplication::installTranslator(catalogue.get());
    m_language = language;
    if (std::exchange(m_installed, language) != language)
        Q_EMIT languageChanged(language);
    return true;
}

bool LocaleManager::load(const QString &language, Catalogues *catalogues) const
{
    auto qt = std::make_unique<QTranslator>();
    if (qt->load(qtCatalogue(language)))
        catalogues->push_back(std::move(qt));
    const QStringList files = catalogueFiles(m_directories, language);
    for (const QString &file : files) {
        auto catalogue = std::make_unique<QTranslator>();
        // Qt goes on to look for files with shorter names; what it finds there is another language.
        if (catalogue->load(file) && QFileInfo(catalogue->filePath()).absoluteFilePath() == file)
            catalogues->push_back(std::move(catalogue));
        else if (language != english()) // which is always there
            return false;
    }
    return language == english() || !files.isEmpty();
}
