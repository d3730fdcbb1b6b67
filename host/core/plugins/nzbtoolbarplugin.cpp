// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/nzbtoolbarplugin.h>

NzbToolBarPlugin::NzbToolBarPlugin() = default;

NzbToolBarPlugin::~NzbToolBarPlugin() = default;
