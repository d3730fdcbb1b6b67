// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class QSettings;
class QTranslator;

/// The language of the program, changed while it runs. The texts in the sources are English ("en"), for which
/// no catalogue is needed; one makes them count better. Other languages come from catalogues (Qt's .qm files)
/// whose names end in "_de.qm",
/// "_pt_BR.qm". GUI thread.
class HALVORA_CORE_EXPORT LocaleManager : public QObject {
    Q_OBJECT
public:
    /// @p settings outlives the manager.
    explicit LocaleManager(QSettings &settings);
    ~LocaleManager() override;
    Q_DISABLE_COPY(LocaleManager)

    /// The language of the program, as remembered until installSaved() was called.
    QString currentLanguage() const;
    /// "en" and every language that has a catalogue, sorted.
    QStringList availableLanguages() const;
    /// The first of the system's languages that is available, otherwise "en".
    QString systemLanguage() const;
    /// Where the next setLanguage() looks for catalogues. In the same text, an earlier folder wins.
    void setTranslationDirectories(const QStringList &directories);

    /// Installs every catalogue of @p language and Qt's own, in the place of those before, and remembers the
    /// language; widgets are told with QEvent::LanguageChange. False, and nothing has changed, when there is
    /// no catalogue or one of them is damaged.
    bool setLanguage(const QString &language);
    /// Installs the remembered language at the start of the program, the system's when there is none; English
    /// when that fails. What is remembered stays, because its catalogue may come back.
    void installSaved();
    /// Forgets the remembered language and installs the system's.
    void reset();

Q_SIGNALS:
    void languageChanged(const QString &language);

private:
    using Catalogues = std::vector<std::unique_ptr<QTranslator>>;

    bool install(const QString &language);
    bool load(const QString &language, Catalogues *catalogues) const;

    QSettings &m_settings;
    QStringList m_directories;
    QString m_language;
    QString m_installed;
    Catalogues m_catalogues;
};
