// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "databaseguard.h"

#include "databaselog.h"
#include "databaseprobe.h"
#include "durablefile.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <unistd.h>

namespace {

// What SQLite keeps beside a file. Left behind, it would be played into the file that comes in its place.
const char *const companions[] = {"-journal", "-wal", "-shm"};

// Of a file that is missing, where the contents would be.
QString whereContentsAre(const QString &file)
{
    const QFileInfo info(file);
    if (info.exists())
        return info.canonicalFilePath();
    return info.isSymLink() ? info.symLinkTarget() : info.absoluteFilePath();
}

} // namespace

DatabaseGuard::DatabaseGuard(const QString &file, StorageManager::Contents contents, const QDateTime &now)
    : m_contents(contents)
    , m_now(now)
    , m_backups(file, now.date())
    , m_file(whereContentsAre(file))
{
}

QString DatabaseGuard::keepSafe()
{
    const QFileInfo info(m_file);
    if (DurableFile::isAbsent(m_file))
        return restoreMissing();
    if (!info.isFile())
        return {};
    // To SQLite a file of one byte or none is a good database. Beside a copy it is what a power cut left of
    // one.
    if (info.size() <= 1)
        return m_backups.newestGood().date.isNull() ? QString() : mend();
    {
        DatabaseProbe probe(m_file);
        const DatabaseProbe::State state = probe.check();
        if (state == DatabaseProbe::State::Good)
            m_backups.keep(probe);
        if (state == DatabaseProbe::State::Unknown)
            qCWarning(logDatabase).noquote() << m_file << "could not be looked into";
        if (state != DatabaseProbe::State::Damaged)
            return {};
    } // the connection is gone before the file goes
    return mend();
}

QString DatabaseGuard::restoreMissing()
{
    const DatabaseBackups::Copy copy = m_backups.newestGood();
    if (copy.date.isNull())
        return {};
    const QString successor = m_file + QStringLiteral(".restored");
    if (DurableFile::copy(copy.file, successor) && moveCompanionsAside(unusedName()) &&
        DurableFile::place(successor, m_file)) {
        qCWarning(logDatabase).noquote() << m_file << "was missing and is now" << copy.file;
        return tr("%1 was missing; the copy of %2 is in use.")
            .arg(subject(), QLocale().toString(copy.date, QLocale::LongFormat));
    }
    QFile::remove(successor);
    if (!DurableFile::isAbsent(m_file))
        return {}; // another program has put it back meanwhile
    return tr("%1 %2 is missing, and its copy could not be put in its place.").arg(subject(), m_file);
}

QString DatabaseGuard::mend()
{
    const DatabaseBackups::Copy copy = m_backups.newestGood();
    const QString aside = unusedName();
    const QString successor = copy.date.isNull() ? QString() : m_file + QStringLiteral(".restored");
    const bool ready = successor.isEmpty() || DurableFile::copy(copy.file, successor);
    if (ready && moveAside(aside, successor)) {
        qCWarning(logDatabase).noquote() << m_file << "was damaged and is now" << aside;
        return sentence(copy.date, aside);
    }
    if (!successor.isEmpty())
        QFile::remove(successor);
    return tr("%1 %2 is damaged, and nothing could be put in its place.").arg(subject(), m_file);
}

QString DatabaseGuard::unusedName() const
{
    const QFileInfo info(m_file);
    const QString start =
        QStringLiteral("%1/%2-damaged-%3")
            .arg(info.path(), info.completeBaseName(), m_now.toString(QStringLiteral("yyyyMMdd-HHmmss")));
    QString name = start + QStringLiteral(".sqlite");
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = QStringLiteral("%1-%2.sqlite").arg(start).arg(number);
    return name;
}

bool DatabaseGuard::moveCompanionsAside(const QString &aside) const
{
    for (const char *companion : companions) {
        const QString ending = QString::fromLatin1(companion);
        if (QFileInfo::exists(m_file + ending) && !QFile::rename(m_file + ending, aside + ending))
            return false;
    }
    return true;
}

// The companions first: wherever this is cut short, the next start finds the damaged file and does it again.
bool DatabaseGuard::moveAside(const QString &aside, const QString &successor) const
{
    if (!moveCompanionsAside(aside))
        return false;
    const QByteArray from = QFile::encodeName(m_file);
    const QByteArray to = QFile::encodeName(aside);
    // With two names for a moment, there is no moment without a file. Not every file system can do that.
    const bool linked = !successor.isEmpty() && ::link(from.constData(), to.constData()) == 0;
    if (!linked && !QFile::rename(m_file, aside))
        return false;
    return successor.isEmpty() ? DurableFile::sync(QFileInfo(m_file).path())
                               : DurableFile::replace(successor, m_file);
}

QString DatabaseGuard::sentence(const QDate &copied, const QString &aside) const
{
    const QString name = QFileInfo(aside).fileName();
    if (copied.isNull())
        return tr("%1 was damaged and there is no copy of it; the damaged file was kept as %2.")
            .arg(subject(), name);
    return tr("%1 was damaged; the copy of %2 is in use and the damaged file was kept as %3.")
        .arg(subject(), QLocale().toString(copied, QLocale::LongFormat), name);
}

// The beginning of each sentence.
QString DatabaseGuard::subject() const
{
    switch (m_contents) {
    case StorageManager::Contents::Bookmarks:
        return tr("The bookmarks file");
    case StorageManager::Contents::Messages:
        return tr("The messages file");
    }
    return {};
}
