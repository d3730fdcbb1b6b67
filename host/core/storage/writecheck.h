// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Whether what is written to a database would reach the disk. Any thread; makes no Qt object.
///
/// It never opens the database. SQLite's locks are the process's own locks of POSIX, and those all go when
/// the process closes any descriptor of the file, whoever opened it: another program could then write at the
/// same time.
class WriteCheck {
public:
    enum class Problem { None, FolderMissing, FolderReadOnly, FileReadOnly, NotAFile, DiskFull };

    /// Looks at @p file, which need not be there yet, and writes a small file into its folder for a moment.
    static Problem look(const std::string &file);
};
