// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/configuration.h>

QString Configuration::settingsOrganization()
{
    return QStringLiteral("halvora");
}

QString Configuration::settingsApplication()
{
    return QStringLiteral("halvora");
}
