// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "pluginfolder.h"

#include <QDir>

QString PluginFolder::find(const QString &chosen, const QString &programFolder)
{
    if (!chosen.isEmpty())
        return QDir(chosen).absolutePath(); // relative ones are searched elsewhere
    const QDir program(programFolder);
    const QDir installed(QDir::cleanPath(program.filePath(QStringLiteral(HALVORA_PLUGIN_WAY))));
    return installed.exists() ? installed.path() : program.filePath(QStringLiteral("plugins"));
}
