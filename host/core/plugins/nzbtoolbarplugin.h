// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>
#include <halvora/iplugin.h>

#include <QObject>

/// The place for the tool bar of the NZB file that is open; the program opens none yet, so it adds no tool
/// bar and nothing to the menus.
class HALVORA_CORE_EXPORT NzbToolBarPlugin : public QObject, public IPlugin {
    Q_OBJECT
public:
    NzbToolBarPlugin();
    ~NzbToolBarPlugin() override;
    Q_DISABLE_COPY(NzbToolBarPlugin)
};
