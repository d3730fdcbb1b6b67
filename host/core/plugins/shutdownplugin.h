// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>
#include <halvora/iplugin.h>

#include <QObject>

class Core;

/// The place for switching the computer off when all downloads are done; there are no downloads to wait for
/// yet, so it adds nothing to the menus.
class HALVORA_CORE_EXPORT ShutdownPlugin : public QObject, public IPlugin {
    Q_OBJECT
public:
    explicit ShutdownPlugin(Core *core);
    ~ShutdownPlugin() override;
    Q_DISABLE_COPY(ShutdownPlugin)
};
