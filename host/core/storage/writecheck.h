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
    enum class Problem { None, FolderMissing, FolderReadOnly, FileReadOnly, NotAFile, FileGone, DiskFull };

    /// Which file of the disk stood under a name when it was first seen there.
    struct Identity {
        bool known = false;
        unsigned long long device = 0;
        unsigned long long number = 0;
    };

    /// Looks at @p file, which need not be there yet, and writes a small file into its folder for a moment.
    /// What is first found under the name is kept in @p seen: whoever has it open writes nowhere once it is
    /// removed or replaced, and is not told.
    static Problem look(const std::string &file, Identity &seen);
};
