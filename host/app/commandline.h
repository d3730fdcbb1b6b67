// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

/// What the program was asked to do.
struct Options {
    QString serviceHost; ///< empty: the provider's own address
    int servicePort = 0;
    QString authorityFile;
    QString profile;
    QString pluginDirectory;
    QString screenshot;
    QString user;
    int passwordDescriptor = -1;
    QString link; ///< a link or a file that the desktop handed over
};

/// Reads the command line. A password is never taken from it, nor from the environment: both can be read by
/// others.
class CommandLine {
    Q_DECLARE_TR_FUNCTIONS(CommandLine)
public:
    enum Result { Run, Done, Misused };

    /// With Done the text is for standard output, with Misused for standard error.
    static Result parse(const QStringList &arguments, Options &options, QString &text);
};
