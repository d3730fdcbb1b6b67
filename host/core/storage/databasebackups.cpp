// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "databasebackups.h"

#include "databaselog.h"
#include "databaseprobe.h"
#include "durablefile.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <sys/stat.h>

namespace {

constexpr int kept = 3;

QString ending()
{
    return QStringLiteral(".backup.sqlite");
}

} // namespace

DatabaseBackups::DatabaseBackups(const QString &databaseFile, const QDate &today)
    : m_database(databaseFile)
    , m_folder(QFileInfo(databaseFile).path() + QStringLiteral("/backups"))
    , m_name(QFileInfo(databaseFile).completeBaseName())
    , m_today(today)
{
}

QVector<DatabaseBackups::Copy> DatabaseBackups::newestFirst() const
{
    QVector<Copy> copies;
    const QString start = m_name + QLatin1Char('-');
    const QStringList names = QDir(m_folder).entryList(QDir::Files);
    for (const QString &name : names) {
        if (!name.startsWith(start) || !name.endsWith(ending()))
            continue;
        const QString day = name.mid(start.size(), name.size() - start.size() - ending().size());
        const QDate date = QDate::fromString(day, Qt::ISODate);
        if (date.isValid() && day == date.toString(Qt::ISODate))
            copies.append({m_folder + QLatin1Char('/') + name, date});
    }
    // A date that is still to come was written under a wrong clock, and is older than all that is right.
    std::sort(copies.begin(), copies.end(), [this](const Copy &one, const Copy &other) {
        const bool past = one.date <= m_today;
        const bool otherPast = other.date <= m_today;
        return past == otherPast ? one.date > other.date : past;
    });
    return copies;
}

DatabaseBackups::Copy DatabaseBackups::newestGood() const
{
    const QVector<Copy> copies = newestFirst();
    for (const Copy &copy : copies) {
        // A file of one byte or none is a good database to SQLite.
        if (QFileInfo(copy.file).size() > 1 && DatabaseProbe(copy.file).check() == DatabaseProbe::State::Good)
            return copy;
        qCWarning(logDatabase).noquote() << copy.file << "is no good copy";
    }
    return {};
}

void DatabaseBackups::keep(DatabaseProbe &probe) const
{
    const QVector<Copy> copies = newestFirst();
    if (!copies.isEmpty() && DurableFile::sameTime(copies.constFirst().file, m_database))
        return;
    QString why = QStringLiteral("it could not be written");
    if (write(probe, &why))
        removeOld();
    else
        qCWarning(logDatabase).noquote() << "There is no new copy of" << m_database + QLatin1Char(':') << why;
}

// Under a name of its own until it is complete, because the copy that it replaces may be the only good one.
bool DatabaseBackups::write(DatabaseProbe &probe, QString *why) const
{
    ::mkdir(QFile::encodeName(m_folder).constData(), S_IRWXU);
    const QString part = partFile();
    const QString target =
        m_folder + QLatin1Char('/') + m_name + QLatin1Char('-') + m_today.toString(Qt::ISODate) + ending();
    QFile::remove(part); // of a run that did not come to its end
    // The copy has the time of what is in it, so that the next start sees whether the file has changed since.
    if (probe.copyInto(part, why) && QFileInfo(part).size() > 0 && DurableFile::copyTime(m_database, part) &&
        DurableFile::sync(part) && DurableFile::replace(part, target))
        return true;
    QFile::remove(part);
    return false;
}

QString DatabaseBackups::partFile() const
{
    return m_folder + QLatin1Char('/') + m_name + QStringLiteral(".part");
}

// A damaged file lies where the database itself is, when the name given is a link.
void DatabaseBackups::removeAll() const
{
    const QVector<Copy> copies = newestFirst();
    for (const Copy &copy : copies)
        QFile::remove(copy.file);
    QFile::remove(partFile());
    const QFileInfo info(QFileInfo(m_database).canonicalFilePath());
    const QRegularExpression damaged(
        QStringLiteral("^%1-damaged-\\d{8}-\\d{6}(-\\d+)?\\.sqlite(-journal|-wal|-shm)?$")
            .arg(QRegularExpression::escape(info.completeBaseName())));
    const QStringList names = info.dir().entryList(QDir::Files).filter(damaged);
    for (const QString &name : names)
        QFile::remove(info.dir().filePath(name));
}

void DatabaseBackups::removeOld() const
{
    const QVector<Copy> copies = newestFirst();
    for (int i = kept; i < copies.size(); ++i)
        QFile::remove(copies.at(i).file);
}
