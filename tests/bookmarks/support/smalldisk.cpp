// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "smalldisk.h"

#include <sys/mount.h>

#include <cerrno>

SmallDisk::SmallDisk()
    : m_filler(m_folder.filePath(QStringLiteral("filler")))
{
    if (::mount("none", QFile::encodeName(path()).constData(), "tmpfs", 0, "size=256k") != 0)
        m_trouble = QStringLiteral("A small file system can not be mounted: %1").arg(qt_error_string(errno));
}

SmallDisk::~SmallDisk()
{
    m_filler.close();
    if (m_trouble.isEmpty())
        ::umount2(QFile::encodeName(path()).constData(), MNT_DETACH);
}

void SmallDisk::fill()
{
    constexpr int piece = 1024;
    if (!m_filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return;
    while (m_filler.write(QByteArray(piece, 'x')) == piece) {
    }
}

void SmallDisk::release()
{
    m_filler.remove();
}
