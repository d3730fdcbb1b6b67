// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QSqlDatabase>
#include <QString>

#include <chrono>

/// A look into a database file through a connection of its own, which ends with the probe. A file that is not
/// there is not made. GUI thread.
class DatabaseProbe {
public:
    /// Unknown is a file that could not be looked into, because it is in use or may not be read, for example:
    /// that says nothing about its contents.
    enum class State { Good, Damaged, Unknown };

    /// Each statement waits @p busyTime for the lock of another program.
    explicit DatabaseProbe(const QString &file, std::chrono::milliseconds busyTime = {});
    ~DatabaseProbe();
    Q_DISABLE_COPY(DatabaseProbe)

    /// Plays back what an interrupted write left behind, as every first reader does, and reads the whole
    /// file.
    State check();
    /// Whether another program keeps this one from reading or writing the file.
    bool isLocked();
    /// Writes the contents to @p target, which must not be there. False with @p why when that fails; what was
    /// written by then is left.
    bool copyInto(const QString &target, QString *why);

private:
    const QString m_connection;
    QSqlDatabase m_database;
};
