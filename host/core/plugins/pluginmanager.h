// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>
#include <halvora/iplugin.h>

#include <QList>

#include <memory>
#include <vector>

/// The sub-plugins of the program, in the order of their registration. GUI thread.
class HALVORA_CORE_EXPORT PluginManager {
public:
    PluginManager();
    ~PluginManager();
    Q_DISABLE_COPY(PluginManager)

    /// Takes @p plugin over; it is destroyed by clear() or with the manager, the last registered first.
    void registerPlugin(IPlugin *plugin);
    QList<IPlugin *> plugins() const;
    void clear();

private:
    std::vector<std::unique_ptr<IPlugin>> m_plugins;
};
