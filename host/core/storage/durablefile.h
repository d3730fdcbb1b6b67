// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

class QString;

/// Files that are on the disk, and not only on their way to it, when an operation says that it succeeded. No
/// operation may be given a database that is open: see WriteCheck for what a descriptor of it does.
class DurableFile {
public:
    /// Waits until the contents of the file or folder @p path are on the disk.
    static bool sync(const QString &path);
    /// Makes @p target, which was not there or is replaced, with the contents and the time of @p source.
    /// Leaves nothing behind when it fails.
    static bool copy(const QString &source, const QString &target);
    /// Gives @p file the time of the last change of @p model.
    static bool copyTime(const QString &model, const QString &file);
    /// Whether both files are there and were changed last at the very same time.
    static bool sameTime(const QString &one, const QString &other);
    /// Puts @p part, which is on the disk already, in the place of @p target in one step.
    static bool replace(const QString &part, const QString &target);
    /// The same where @p target is not there; false when it is by now.
    static bool place(const QString &part, const QString &target);
    /// Whether there is certainly nothing of the name @p path, not even a link to a missing file. False when
    /// the file system does not answer.
    static bool isAbsent(const QString &path);
};
