// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/isettings.h>

ISettings::ISettings() = default;

ISettings::~ISettings() = default;
