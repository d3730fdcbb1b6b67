// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QString>

/// Where the program keeps its data and the user's downloads. GUI thread.
class HALVORA_CORE_EXPORT StorageManager {
public:
    /// Everything lives in @p profile when it is given, otherwise in the user's XDG folders.
    explicit StorageManager(const QString &profile = QString());
    Q_DISABLE_COPY(StorageManager)

    /// The absolute path of the folder for databases and journals, made on demand for its owner alone. Where
    /// it cannot be made, whoever opens a file in it learns so then.
    QString dataDirectory() const;
    /// The database file of @p storageName in dataDirectory().
    QString databasePath(const QString &storageName) const;

    /// Names the folder for downloads within the user's own; the name is cleaned with fileName().
    void setDownloadFolderName(const QString &name);
    /// The absolute path of the folder for downloads, which whoever saves the first file makes.
    QString downloadFolder() const;

    /// @p name as a single component of a path: without separators and control characters, never hidden and
    /// never longer than file systems allow; @p fallback when nothing is left of it.
    static QString fileName(const QString &name, const QString &fallback);

private:
    QString m_profile; ///< absolute, or empty
    QString m_downloadFolderName;
};
