// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/filetype.h>

#include <QByteArray>
#include <QList>
#include <QString>

/// The file that makes file types known to the shared MIME-info database.
class MimePackage {
public:
    /// Where the package stands below a data folder.
    static QString path(const QString &dataFolder);
    /// Whether both parts of @p type are words that the package and the other files can hold as they are.
    static bool isValid(const FileType &type);
    /// RFC 6838, section 4.2, for either part.
    static bool isValidMimeType(const QString &mimeType);
    static QByteArray compose(const QString &description, const QList<FileType> &types);
};
