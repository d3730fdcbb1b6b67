// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// Small files that other programs read too.
class FileUpdate {
public:
    enum class Result { Same, Written, Failed };

    /// Reads @p path into @p bytes. True also when there is no such file, which reads as nothing; false when
    /// it cannot be read, is no plain file or is larger than any list that a person keeps.
    static bool read(const QString &path, QByteArray *bytes);
    /// Makes @p path hold @p bytes, all of them or none (QSaveFile), and leaves a file alone that does.
    static Result write(const QString &path, const QByteArray &bytes);
};
