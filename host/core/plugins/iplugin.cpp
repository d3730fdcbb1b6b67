// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/iplugin.h>

IPlugin::~IPlugin() = default;
