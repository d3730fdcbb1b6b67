// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>
#include <halvora/iplugin.h>

#include <QObject>

class Core;

/// Will hold news servers besides the provider's. So far it only takes its place among the plug-ins.
class HALVORA_CONNECTOR_EXPORT HBackupNntpPlugin final : public QObject, public IPlugin {
    Q_OBJECT
public:
    explicit HBackupNntpPlugin(Core *core);
};
