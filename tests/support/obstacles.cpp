// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "obstacles.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <array>
#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
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

namespace {

// Where SQLite says by its locks who reads and who writes.
constexpr off_t sharedBytes = 0x40000002;
constexpr off_t sharedLength = 510;

bool lockShared(const QByteArray &name, short type)
{
    struct flock lock = {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = sharedBytes;
    lock.l_len = sharedLength;
    const int descriptor = ::open(name.constData(), O_RDWR | O_CLOEXEC);
    return descriptor >= 0 && ::fcntl(descriptor, F_SETLK, &lock) == 0;
}

} // namespace

ForeignLock::ForeignLock(const QString &path, Kind kind)
{
    const QByteArray name = QFile::encodeName(path);
    std::array<int, 2> start = {};
    std::array<int, 2> end = {};
    if (::pipe2(start.data(), O_CLOEXEC) != 0 || ::pipe2(end.data(), O_CLOEXEC) != 0)
        return;
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(end[1]);
        const char held = lockShared(name, kind == Reads ? F_RDLCK : F_WRLCK) ? 1 : 0;
        char none = 0;
        const bool waits = ::write(start[1], &held, 1) == 1 && ::read(end[0], &none, 1) >= 0;
        ::_exit(waits ? 0 : 1);
    }
    ::close(start[1]);
    ::close(end[0]);
    char held = 0;
    const bool answered = ::read(start[0], &held, 1) == 1;
    ::close(start[0]);
    m_process = child;
    m_pipe = end[1];
    if (!answered || held == 0)
        release();
}

void ForeignLock::release()
{
    if (m_process <= 0)
        return;
    ::close(m_pipe);
    int status = 0;
    ::waitpid(m_process, &status, 0);
    m_process = -1;
}
