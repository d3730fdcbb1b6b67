// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "fileupdate.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

constexpr qint64 MaximumSize = qint64(4) * 1024 * 1024;

} // namespace

bool FileUpdate::read(const QString &path, QByteArray *bytes)
{
    bytes->clear();
    const QFileInfo info(path);
    if (!info.exists())
        return !info.isSymLink() || !QFileInfo::exists(info.symLinkTarget());
    // Opening a pipe would wait for its other end.
    if (!info.isFile() || info.size() > MaximumSize)
        return false;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    *bytes = file.read(MaximumSize);
    return file.error() == QFileDevice::NoError;
}

FileUpdate::Result FileUpdate::write(const QString &path, const QByteArray &bytes)
{
    QByteArray present;
    if (!read(path, &present))
        return Result::Failed;
    if (present == bytes && QFileInfo::exists(path))
        return Result::Same;
    if (!QDir().mkpath(QFileInfo(path).path()))
        return Result::Failed;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return Result::Failed;
    file.write(bytes);
    return file.commit() ? Result::Written : Result::Failed;
}
