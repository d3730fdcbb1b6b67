// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/storagemanager.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <sys/stat.h>

namespace {

constexpr int MaximumLength = 60; // characters of at most four bytes, of the 255 bytes of a name

void makePrivateDirectory(const QString &path)
{
    if (QFileInfo::exists(path))
        return;
    QDir().mkpath(QFileInfo(path).path());
    // The mode is given at once, because a folder that was open for a moment may have been entered.
    ::mkdir(QFile::encodeName(path).constData(), S_IRWXU);
}

} // namespace

StorageManager::StorageManager(const QString &profile)
    : m_profile(profile.isEmpty() ? QString() : QDir::cleanPath(QDir(profile).absolutePath()))
    , m_downloadFolderName(QStringLiteral("Halvora"))
{
}

QString StorageManager::dataDirectory() const
{
    QString path = m_profile.isEmpty()
                       ? QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                             QStringLiteral("/halvora")
                       : m_profile;
    makePrivateDirectory(path);
    return path;
}

QString StorageManager::databasePath(const QString &storageName) const
{
    const QString name = fileName(storageName, QStringLiteral("halvora"));
    return QDir(dataDirectory()).filePath(name + QStringLiteral(".sqlite"));
}

void StorageManager::setDownloadFolderName(const QString &name)
{
    m_downloadFolderName = fileName(name, QStringLiteral("Halvora"));
}

QString StorageManager::downloadFolder() const
{
    const QString parent = m_profile.isEmpty()
                               ? QStandardPaths::writableLocation(QStandardPaths::DownloadLocation)
                               : m_profile + QStringLiteral("/downloads");
    return QDir(parent).filePath(m_downloadFolderName);
}

QString StorageManager::fileName(const QString &name, const QString &fallback)
{
    QString clean;
    for (const QChar character : name) {
        const bool separates = character == QLatin1Char('/') || character == QLatin1Char('\\');
        const bool prints = character.isPrint() || character.isSurrogate();
        clean += separates || !prints ? QLatin1Char('_') : character;
    }
    clean = clean.trimmed();
    while (clean.startsWith(QLatin1Char('.')) || clean.startsWith(QLatin1Char(' ')))
        clean.remove(0, 1);
    clean.truncate(MaximumLength);
    if (!clean.isEmpty() && clean.at(clean.size() - 1).isHighSurrogate())
        clean.chop(1);
    clean = clean.trimmed();
    return clean.isEmpty() ? fallback : clean;
}
