// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "writecheck.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {

using Problem = WriteCheck::Problem;

constexpr unsigned long long leastRoom = 1024ULL * 1024; // bytes; a journal and a few pages

bool mayWrite(const std::string &path, int mode)
{
    return ::faccessat(AT_FDCWD, path.c_str(), mode, AT_EACCESS) == 0;
}

Problem lookAtFolder(const std::string &folder)
{
    struct stat status = {};
    if (::stat(folder.c_str(), &status) != 0)
        return Problem::FolderMissing;
    return mayWrite(folder, W_OK | X_OK) ? Problem::None : Problem::FolderReadOnly;
}

Problem lookAtDisk(const std::string &folder)
{
    struct statvfs disk = {};
    if (::statvfs(folder.c_str(), &disk) != 0)
        return Problem::None; // says nothing; writing will
    if ((disk.f_flag & ST_RDONLY) != 0)
        return Problem::FolderReadOnly;
    const bool countsFiles = disk.f_files > 0; // some file systems make their records as they need them
    const bool full = static_cast<unsigned long long>(disk.f_bavail) * disk.f_frsize < leastRoom;
    return full || (countsFiles && disk.f_favail == 0) ? Problem::DiskFull : Problem::None;
}

Problem lookAtFile(const std::string &file, WriteCheck::Identity &seen)
{
    struct stat status = {};
    if (::stat(file.c_str(), &status) != 0)
        return seen.known ? Problem::FileGone : Problem::None;
    if (!S_ISREG(status.st_mode))
        return Problem::NotAFile;
    if (seen.known && (seen.device != status.st_dev || seen.number != status.st_ino))
        return Problem::FileGone;
    seen = {true, status.st_dev, status.st_ino};
    return mayWrite(file, W_OK) ? Problem::None : Problem::FileReadOnly;
}

Problem reason(int error)
{
    return error == ENOSPC || error == EDQUOT ? Problem::DiskFull : Problem::FolderReadOnly;
}

// Rights and figures do not tell everything: quotas, servers that changed their mind, disks that went away.
Problem tryToWrite(const std::string &folder)
{
    const std::string name = folder + "/.halvora-write-check-" + std::to_string(::getpid());
    ::unlink(name.c_str()); // of a look that was cut short; only ever a new file is opened
    const int descriptor = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor < 0)
        return reason(errno);
    ::unlink(name.c_str()); // at once, so that nothing is left whatever happens
    const std::array<char, 4096> block = {};
    errno = ENOSPC; // what a part of a block means
    const bool written = ::write(descriptor, block.data(), block.size()) == ssize_t(block.size());
    const int error = errno;
    const bool closed = ::close(descriptor) == 0; // where servers tell that their disk is full
    if (!written)
        return reason(error);
    return closed ? Problem::None : reason(errno);
}

} // namespace

WriteCheck::Problem WriteCheck::look(const std::string &file, Identity &seen)
{
    const std::string folder = file.substr(0, file.find_last_of('/'));
    Problem problem = lookAtFolder(folder);
    if (problem == Problem::None)
        problem = lookAtFile(file, seen);
    if (problem == Problem::None)
        problem = lookAtDisk(folder);
    return problem == Problem::None ? tryToWrite(folder) : problem;
}
