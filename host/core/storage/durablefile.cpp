// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "durablefile.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QByteArray nameOf(const QString &path)
{
    return QFile::encodeName(path);
}

bool readStatus(const QString &path, struct stat *status)
{
    return ::stat(nameOf(path).constData(), status) == 0;
}

} // namespace

bool DurableFile::sync(const QString &path)
{
    const int descriptor = ::open(nameOf(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    const bool synced = ::fsync(descriptor) == 0;
    return ::close(descriptor) == 0 && synced;
}

bool DurableFile::copy(const QString &source, const QString &target)
{
    QFile::remove(target);
    if (QFile::copy(source, target) && copyTime(source, target) && sync(target))
        return true;
    QFile::remove(target);
    return false;
}

bool DurableFile::copyTime(const QString &model, const QString &file)
{
    struct stat status = {};
    if (!readStatus(model, &status))
        return false;
    const struct timespec times[] = {status.st_atim, status.st_mtim};
    return ::utimensat(AT_FDCWD, nameOf(file).constData(), times, 0) == 0;
}

bool DurableFile::sameTime(const QString &one, const QString &other)
{
    struct stat first = {};
    struct stat second = {};
    return readStatus(one, &first) && readStatus(other, &second) &&
           first.st_mtim.tv_sec == second.st_mtim.tv_sec && first.st_mtim.tv_nsec == second.st_mtim.tv_nsec;
}

bool DurableFile::replace(const QString &part, const QString &target)
{
    return ::rename(nameOf(part).constData(), nameOf(target).constData()) == 0 &&
           sync(QFileInfo(target).path());
}

bool DurableFile::place(const QString &part, const QString &target)
{
    const QByteArray from = nameOf(part);
    const QByteArray to = nameOf(target);
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return sync(QFileInfo(target).path());
    // Not every file system knows that.
    return (errno == EINVAL || errno == ENOSYS) && isAbsent(target) && replace(part, target);
}

bool DurableFile::isAbsent(const QString &path)
{
    struct stat status = {};
    return ::lstat(nameOf(path).constData(), &status) != 0 && errno == ENOENT;
}
