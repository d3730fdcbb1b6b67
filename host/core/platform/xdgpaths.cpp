// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "xdgpaths.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace {

QString home(const char *variable, const QString &fallback)
{
    const QString path = QFile::decodeName(qgetenv(variable));
    return QDir::cleanPath(QDir::isAbsolutePath(path) ? path : QDir::home().filePath(fallback));
}

} // namespace

QString XdgPaths::dataHome()
{
    return home("XDG_DATA_HOME", QStringLiteral(".local/share"));
}

QString XdgPaths::configHome()
{
    return home("XDG_CONFIG_HOME", QStringLiteral(".config"));
}

QStringList XdgPaths::systemData()
{
    QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    folders.removeAll(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    folders.removeAll(dataHome());
    return folders;
}

QStringList XdgPaths::desktops()
{
    return QString::fromLocal8Bit(qgetenv("XDG_CURRENT_DESKTOP"))
        .toLower()
        .split(QLatin1Char(':'), Qt::SkipEmptyParts);
}
