// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDate>
#include <QString>
#include <QVector>

class DatabaseProbe;

/// The copies of one database file, one for each of the last days on which it had changed. They lie in the
/// folder "backups" beside it. GUI thread.
class DatabaseBackups {
public:
    struct Copy {
        QString file;
        QDate date; ///< null for no copy
    };

    /// @p today is the user's own date.
    DatabaseBackups(const QString &databaseFile, const QDate &today);

    QVector<Copy> newestFirst() const;
    /// The newest copy that can be read from its first to its last byte.
    Copy newestGood() const;

    /// Makes the copy of today when the file has changed since the last one; copies that are too old go once
    /// the new one is on the disk. A failure is logged and costs nothing else. @p probe looks into the file.
    void keep(DatabaseProbe &probe) const;

    /// Deletes every copy, and every file that was put aside as damaged.
    void removeAll() const;

private:
    bool write(DatabaseProbe &probe, QString *why) const;
    QString partFile() const;
    void removeOld() const;

    const QString m_database;
    const QString m_folder;
    const QString m_name; ///< of the database, without its ending
    const QDate m_today;
};
