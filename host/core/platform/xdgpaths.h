// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// The folders of the XDG Base Directory rules, read from the environment at every call. A relative path in
/// the environment counts as none.
class XdgPaths {
public:
    static QString dataHome();
    static QString configHome();
    /// The folders of all users, the most important first; never the user's own.
    static QStringList systemData();
    /// The names of the running desktop in lower case, the most important first.
    static QStringList desktops();
};
