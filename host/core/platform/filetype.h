// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QString>

/// A kind of file that the program opens.
class HALVORA_CORE_EXPORT FileType {
public:
    /// @p extension comes without its dot ("nzb"), @p mimeType as "type/subtype" (RFC 6838).
    FileType(const QString &extension, const QString &mimeType)
        : m_extension(extension)
        , m_mimeType(mimeType)
    {
    }

    const QString &extension() const { return m_extension; }
    const QString &mimeType() const { return m_mimeType; }

private:
    QString m_extension;
    QString m_mimeType;
};
