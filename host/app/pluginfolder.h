// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Where the program's plug-ins are.
class PluginFolder {
public:
    /// @p chosen as an absolute path when it is not empty. Otherwise the folder that belongs to a program
    /// that stands in @p programFolder: the one below its prefix, wherever that was moved to, or the folder
    /// "plugins" beside the program, as in a build tree. It need not exist.
    static QString find(const QString &chosen, const QString &programFolder);
};
