// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

/// A part of the program that a provider plug-in registers with PluginManager.
class HALVORA_CORE_EXPORT IPlugin {
public:
    IPlugin() = default;
    virtual ~IPlugin();
    Q_DISABLE_COPY(IPlugin)
};
