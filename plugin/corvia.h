// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/abstractprovider.h>

class Connector;
class CVConnectorPlugin;

/// The provider's root object, the one object that the library makes for the application.
class Corvia final : public AbstractProvider {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "Corvia" FILE "corvia.json")
    Q_INTERFACES(CorePluginInterface)
public:
    Corvia();
    ~Corvia() override;

    void create(QObject *application, Core *core) override;
    void init(Benchmark &benchmark) override;

private:
    void registerLinkScheme();
    void registerFileType();
    void registerPlugins();

    Core *m_core = nullptr;
    CVConnectorPlugin *m_connectorPlugin = nullptr;
    Connector *m_connector = nullptr;
};
