// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "keydirectory.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace corvia {

namespace {

bool failed(const std::string &what, std::string *why)
{
    *why = what + ": " + std::strerror(errno) + ".";
    return false;
}

} // namespace

KeyDirectory::~KeyDirectory()
{
    if (temporary_) {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
}

bool KeyDirectory::open(const std::string &directory, std::string *why)
{
    if (!directory.empty()) {
        path_ = directory;
        if (::mkdir(path_.c_str(), 0700) != 0 && errno != EEXIST) {
            return failed("Cannot create the directory " + path_, why);
        }
        return true;
    }
    path_ = (std::filesystem::temp_directory_path() / "corvia-service-XXXXXX").string();
    if (::mkdtemp(path_.data()) == nullptr) {
        return failed("Cannot create a temporary directory", why);
    }
    temporary_ = true;
    return true;
}

std::string KeyDirectory::pathOf(const std::string &name) const
{
    return (std::filesystem::absolute(path_) / name).string();
}

bool KeyDirectory::write(const std::string &name, const std::string &text, std::string *why) const
{
    const std::string path = pathOf(name);
    // An older file may have been left open to others, so it makes room for a new one.
    ::unlink(path.c_str());
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file < 0) {
        return failed("Cannot write the file " + path, why);
    }
    const ssize_t written = ::write(file, text.data(), text.size());
    if (::close(file) != 0 || written != static_cast<ssize_t>(text.size())) {
        return failed("Cannot write the file " + path, why);
    }
    return true;
}

} // namespace corvia
