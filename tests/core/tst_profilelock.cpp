// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkfile.h"
#include "obstacles.h"

#include <halvora/profilelock.h>

#include <QSysInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/wait.h>
#include <unistd.h>

class ProfileLockTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aFolderIsKeptForOne();
    void aProgramThatDiedKeepsNothing();
    void aLockThatNamesNobodyIsTakenOver();
    void anotherComputerIsNamed();
    void aFolderThatCanNotBeWrittenIsNoRefusal();

private:
    QTemporaryDir m_folder;
};

namespace {

/// As the lock's file names its owner.
QByteArray owner(qint64 process, const QString &computer)
{
    return QByteArray::number(process) + "\ntst_profilelock\n" + computer.toUtf8() + '\n';
}

qint64 processThatDied()
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(0);
    ::waitpid(child, nullptr, 0);
    return child;
}

} // namespace

void ProfileLockTest::aFolderIsKeptForOne()
{
    {
        const ProfileLock first(m_folder.path());
        QCOMPARE(first.refusal(), QString());
        const ProfileLock second(m_folder.path());
        QVERIFY2(second.refusal().contains(m_folder.path()), qPrintable(second.refusal()));
        const QTemporaryDir other;
        QCOMPARE(ProfileLock(other.path()).refusal(), QString());
    }
    QCOMPARE(ProfileLock(m_folder.path()).refusal(), QString());
}

void ProfileLockTest::aProgramThatDiedKeepsNothing()
{
    BookmarkFile::setBytes(m_folder.filePath(QStringLiteral("halvora.lock")),
                           owner(processThatDied(), QSysInfo::machineHostName()));
    QCOMPARE(ProfileLock(m_folder.path()).refusal(), QString());
}

// What is left by a program that was killed, or lost its power, while it made the file.
void ProfileLockTest::aLockThatNamesNobodyIsTakenOver()
{
    const QString folder = m_folder.filePath(QStringLiteral("empty"));
    QVERIFY(QDir().mkpath(folder));
    QFile file(folder + QStringLiteral("/halvora.lock"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    const ProfileLock lock(folder);
    QCOMPARE(lock.refusal(), QString());
    QVERIFY(!ProfileLock(folder).refusal().isEmpty());
}

void ProfileLockTest::anotherComputerIsNamed()
{
    const QString file = m_folder.filePath(QStringLiteral("halvora.lock"));
    BookmarkFile::setBytes(file, owner(1, QStringLiteral("attic")));
    const QString refusal = ProfileLock(m_folder.path()).refusal();
    QVERIFY2(refusal.contains(QLatin1String("attic")) && refusal.contains(file), qPrintable(refusal));
    QVERIFY(QFile::exists(file));
    QVERIFY(QFile::remove(file));
}

void ProfileLockTest::aFolderThatCanNotBeWrittenIsNoRefusal()
{
    const WriteProtection protection(m_folder.path());
    if (!protection.problem().isEmpty())
        QSKIP(qPrintable(protection.problem()));
    QCOMPARE(ProfileLock(m_folder.path()).refusal(), QString());
}

QTEST_GUILESS_MAIN(ProfileLockTest)
#include "tst_profilelock.moc"
