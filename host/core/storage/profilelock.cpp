// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/profilelock.h>

#include <QDir>
#include <QSysInfo>

namespace {

QString lockFile(const QString &folder)
{
    return QDir(folder).filePath(QStringLiteral("halvora.lock"));
}

} // namespace

ProfileLock::ProfileLock(const QString &folder)
    : m_lock(lockFile(folder))
{
    // However long the other one has been running, it has the folder.
    m_lock.setStaleLockTime(0);
    if (!m_lock.tryLock(0) && m_lock.error() == QLockFile::LockFailedError && !takeOverEmptyLock())
        m_refusal = describe(m_lock, folder, lockFile(folder));
}

// A program that was killed, or lost its power, while it made the file left one that names nobody. One that
// is just starting has named itself a moment later.
bool ProfileLock::takeOverEmptyLock()
{
    constexpr int moment = 1000; // milliseconds
    const auto namesSomebody = [this] {
        qint64 process = 0;
        QString computer;
        QString program;
        return m_lock.getLockInfo(&process, &computer, &program);
    };
    if (namesSomebody())
        return false;
    if (m_lock.tryLock(moment))
        return true;
    return !namesSomebody() && m_lock.removeStaleLockFile() && m_lock.tryLock(0);
}

QString ProfileLock::describe(const QLockFile &lock, const QString &folder, const QString &file)
{
    qint64 process = 0;
    QString computer;
    QString program;
    // Whether a program of another computer still runs cannot be seen from here.
    if (lock.getLockInfo(&process, &computer, &program) && !computer.isEmpty() &&
        computer != QSysInfo::machineHostName())
        return tr("Halvora is running with the folder %1 on the computer %2; if it is not, remove the file "
                  "%3.")
            .arg(folder, computer, file);
    return tr("Halvora is running with the folder %1 already; use its window, or start with another profile.")
        .arg(folder);
}
