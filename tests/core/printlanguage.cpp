// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/localemanager.h>

#include <QCoreApplication>
#include <QSettings>

#include <cstdio>

// Prints the language that a program starts in: printlanguage settings catalogue-folder
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QSettings settings(arguments.value(1), QSettings::IniFormat);
    LocaleManager locale(settings);
    locale.setTranslationDirectories({arguments.value(2)});
    locale.installSaved();
    std::printf("%s\n", qPrintable(locale.currentLanguage()));
    return 0;
}
