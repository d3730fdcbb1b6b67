// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTemporaryDir>

/// Takes the right to write a file or folder away, also from root, for as long as this lives.
class WriteProtection {
public:
    explicit WriteProtection(const QString &path);
    ~WriteProtection() { release(); }
    Q_DISABLE_COPY(WriteProtection)

    /// Why there is none, empty when there is.
    QString problem() const { return m_problem; }
    void release();

private:
    bool change(bool protect) const;

    const QString m_path;
    QString m_problem;
    bool m_held = false;
};

/// A disk of its own for as long as this lives. Only root may mount one.
class SmallDisk {
public:
    /// The size in KiB.
    explicit SmallDisk(int size = 2048);
    ~SmallDisk();
    Q_DISABLE_COPY(SmallDisk)

    QString problem() const { return m_problem; }
    QString path() const { return m_folder.path(); }
    /// Takes all the room, and gives it back.
    void fill() const;
    void empty() const;

private:
    QTemporaryDir m_folder;
    QString m_problem;
};

/// Another process that reads or writes a database, as SQLite's locks show it, for as long as this lives.
class ForeignLock {
public:
    enum Kind { Reads, Writes };

    /// @p path is there.
    ForeignLock(const QString &path, Kind kind);
    ~ForeignLock() { release(); }
    Q_DISABLE_COPY(ForeignLock)

    bool isHeld() const { return m_process > 0; }
    void release();

private:
    int m_process = -1;
    int m_pipe = -1; ///< the process ends when this end is closed
};
