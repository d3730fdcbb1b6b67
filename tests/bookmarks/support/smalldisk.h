// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QTemporaryDir>

/// A file system of 256 KiB of its own, which only root can have.
class SmallDisk {
public:
    SmallDisk();
    ~SmallDisk();
    Q_DISABLE_COPY(SmallDisk)

    /// Why there is none; empty when there is one.
    QString trouble() const { return m_trouble; }
    QString path() const { return m_folder.path(); }
    /// Takes all the space that is left, until release().
    void fill();
    void release();

private:
    QTemporaryDir m_folder;
    QFile m_filler;
    QString m_trouble;
};
