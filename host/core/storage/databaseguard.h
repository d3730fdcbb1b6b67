// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "databasebackups.h"

#include <halvora/storagemanager.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QString>

/// Looks after a database file before it is opened. The stores do not wait for the disk when they write, so
/// that the window never does; a power cut can therefore damage a file, and this is what keeps the user's
/// data. A damaged file is moved aside, never deleted, and the newest good copy takes its place, as it takes
/// that of a file that is missing. GUI thread.
class DatabaseGuard {
    Q_DECLARE_TR_FUNCTIONS(DatabaseGuard)
public:
    /// @p contents is what @p file keeps, @p now is the user's own time.
    DatabaseGuard(const QString &file, StorageManager::Contents contents, const QDateTime &now);

    /// To be called while nobody has the file open. What the user has to know in one sentence, mostly
    /// nothing.
    QString keepSafe();

private:
    QString restoreMissing();
    QString mend();
    QString unusedName() const;
    bool moveCompanionsAside(const QString &aside) const;
    bool moveAside(const QString &aside, const QString &successor) const;
    QString sentence(const QDate &copied, const QString &aside) const;
    QString subject() const;

    const StorageManager::Contents m_contents;
    const QDateTime m_now;
    const DatabaseBackups m_backups;
    const QString m_file; ///< where the contents are or would be, when the name given is a link
};
