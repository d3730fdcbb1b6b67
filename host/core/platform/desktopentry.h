// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

/// This program's desktop entry file.
class DesktopEntry {
    Q_DECLARE_TR_FUNCTIONS(DesktopEntry)
public:
    /// The file's name, which is what other files call the program by.
    static QString id();
    /// Where the entry stands below a data folder.
    static QString path(const QString &dataFolder);

    /// The types that the entry in @p file offers; none when there is no such file or it is hidden.
    static QStringList mimeTypes(const QString &file);
    /// Whether the entry in @p file starts a program by its path, and there is none. What is found by a name
    /// or by other means is somebody else's decision and never counts as gone.
    static bool startsWhatIsGone(const QString &file);
    /// The bytes of an entry that starts @p program with one link or file.
    static QByteArray compose(const QString &title, const QString &program, const QStringList &mimeTypes);
    /// @p text on one line, without characters that a text file cannot hold.
    static QString singleLine(const QString &text);

private:
    static QString firstArgument(const QString &command);
    static QString escaped(const QString &text);
    static QString quotedArgument(const QString &text);
};
