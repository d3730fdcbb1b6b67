// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/storagemanager.h>

#include "databasebackups.h"
#include "databaseguard.h"
#include "databaseprobe.h"
#include "writealarm.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMetaMethod>
#include <QStandardPaths>

#include <sys/stat.h>

namespace {

constexpr int MaximumLength = 60; // characters of at most four bytes, of the 255 bytes of a name

// For each of the two statements that are tried.
constexpr std::chrono::milliseconds lockTime(100);

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
    , m_clock(&QDateTime::currentDateTime)
    , m_alarm(std::make_unique<WriteAlarm>([this] { return m_clock(); }))
{
    connect(m_alarm.get(), &WriteAlarm::changed, this, &StorageManager::writeProblemChanged);
}

StorageManager::~StorageManager() = default;

QString StorageManager::dataDirectory() const
{
    QString path = m_profile.isEmpty()
                       ? QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                             QStringLiteral("/halvora")
                       : m_profile;
    makePrivateDirectory(path);
    return path;
}

QString StorageManager::databasePath(const QString &storageName)
{
    return databasePath(storageName, Contents::Bookmarks);
}

QString StorageManager::databasePath(const QString &storageName, Contents contents)
{
    QString path = pathOf(storageName);
    if (m_guarded.contains(path))
        return path;
    m_guarded.insert(path);
    const QString sentence = DatabaseGuard(path, contents, m_clock()).keepSafe();
    if (!sentence.isEmpty())
        raiseNotice(sentence);
    m_alarm->add(path, contents);
    return path;
}

QString StorageManager::pathOf(const QString &storageName) const
{
    const QString name = fileName(storageName, QStringLiteral("halvora"));
    return QDir(dataDirectory()).filePath(name + QStringLiteral(".sqlite"));
}

// A pipe would block, and beside an empty file SQLite deletes the journal.
bool StorageManager::isDatabaseLocked(const QString &storageName) const
{
    const QFileInfo file(pathOf(storageName));
    return file.isFile() && file.size() > 1 && DatabaseProbe(file.filePath(), lockTime).isLocked();
}

void StorageManager::removeCopies(const QString &storageName) const
{
    DatabaseBackups(pathOf(storageName), m_clock().date()).removeAll();
}

// What is told before there is a window has to wait for one.
void StorageManager::raiseNotice(const QString &sentence)
{
    if (isSignalConnected(QMetaMethod::fromSignal(&StorageManager::noticeRaised)))
        Q_EMIT noticeRaised(sentence);
    else
        m_notices.append(sentence);
}

QStringList StorageManager::takeNotices()
{
    return std::exchange(m_notices, {});
}

void StorageManager::setClock(const Clock &clock)
{
    m_clock = clock;
}

QString StorageManager::writeProblem() const
{
    return m_alarm->sentence();
}

void StorageManager::setCheckInterval(std::chrono::milliseconds interval)
{
    m_alarm->watch().setInterval(interval);
}

void StorageManager::checkNow()
{
    m_alarm->watch().checkNow();
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
