// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "obstacles.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

WriteProtection::WriteProtection(const QString &path)
    : m_path(path)
    , m_held(change(true))
{
    if (!m_held)
        m_problem = QStringLiteral("this file system can not keep root from writing");
}

bool WriteProtection::change(bool protect) const
{
    if (::geteuid() == 0)
        return QProcess::execute(QStringLiteral("chattr"),
                                 {protect ? QStringLiteral("+i") : QStringLiteral("-i"), m_path}) == 0;
    const mode_t entering = QFileInfo(m_path).isDir() ? S_IXUSR : 0;
    const mode_t mode = S_IRUSR | entering | (protect ? 0 : S_IWUSR);
    return ::chmod(QFile::encodeName(m_path).constData(), mode) == 0;
}

void WriteProtection::release()
{
    if (m_held)
        change(false);
    m_held = false;
}

SmallDisk::SmallDisk(int size)
{
    const QByteArray options = "size=" + QByteArray::number(size) + "k";
    if (::mount("tmpfs", QFile::encodeName(path()).constData(), "tmpfs", MS_NOSUID | MS_NODEV,
                options.constData()) != 0)
        m_problem = QStringLiteral("only root can mount a small disk");
}

SmallDisk::~SmallDisk()
{
    if (m_problem.isEmpty())
        ::umount2(QFile::encodeName(path()).constData(), MNT_DETACH);
}

void SmallDisk::fill() const
{
    QFile file(path() + QStringLiteral("/filler"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return;
    const QByteArray block(4096, 'f');
    while (file.write(block) == block.size()) {
    }
}

void SmallDisk::empty() const
{
    QFile::remove(path() + QStringLiteral("/filler"));
}
