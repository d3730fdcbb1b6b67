// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QtGlobal>

/// A part of the program that has settings of its own. Registered with SettingsRegistry. GUI thread.
class HALVORA_CORE_EXPORT ISettings {
public:
    ISettings();
    virtual ~ISettings();
    Q_DISABLE_COPY(ISettings)

    /// Goes back to what a new user has, in memory and where it is stored.
    virtual void resetSettings() = 0;
};
