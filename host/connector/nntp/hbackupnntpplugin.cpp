// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hbackupnntpplugin.h>

HBackupNntpPlugin::HBackupNntpPlugin(Core *core)
{
    Q_UNUSED(core)
}
