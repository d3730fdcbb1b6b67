// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// What a second start of the program says to the one that runs: come to the front, and open this. On the
/// wire it is one line of UTF-8 text, "halvora 1" and, after a blank, what is to be opened.
class InstanceLine {
public:
    static constexpr int longest = 8192; ///< bytes with the line's end
    static QByteArray answer() { return QByteArrayLiteral("ok\n"); }

    /// @p argument may be empty; nothing comes back for one that is too long or holds a line's end.
    static QByteArray write(const QString &argument);
    /// What is to be opened, which may be empty; nothing when no program like this one wrote @p line, which
    /// has its end.
    static std::optional<QString> read(const QByteArray &line);
};
