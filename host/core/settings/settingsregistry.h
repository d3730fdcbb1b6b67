// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/isettings.h>
#include <halvora/partregistry.h>

/// The parts of the program that have settings of their own.
class SettingsRegistry final : public PartRegistry<ISettings> {
public:
    void registerSettings(ISettings *part) { add(part); }
};
