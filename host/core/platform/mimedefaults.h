// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// Which program the user's desktop opens a type with.
class MimeDefaults {
public:
    /// Makes the desktop entry @p entry the default for those of @p mimeTypes for which the user has chosen
    /// none. True when it is the default for all of them afterwards.
    static bool claim(const QStringList &mimeTypes, const QString &entry);

private:
    enum class Choice { None, Ours, Other };

    static Choice choice(const QString &mimeType, const QString &entry);
    static bool write(const QStringList &mimeTypes, const QString &entry);
};
