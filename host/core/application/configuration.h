// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QString>

/// The names under which settings are stored.
class HALVORA_CORE_EXPORT Configuration {
public:
    static QString settingsOrganization();
    static QString settingsApplication();
};
