// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/shutdownplugin.h>

ShutdownPlugin::ShutdownPlugin(Core *core)
{
    Q_UNUSED(core)
}

ShutdownPlugin::~ShutdownPlugin() = default;
