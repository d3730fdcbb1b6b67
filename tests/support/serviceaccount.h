// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "testconnectorplugin.h"

#include <halvora/core.h>

#include <QTemporaryDir>

#include <corviaservice.h>

class Connector;
class HServer;

/// A loopback account service, and a provider that is pointed at it and knows the demo account's password.
class ServiceAccount {
public:
    explicit ServiceAccount(const corvia::Options &options = corvia::Options(),
                            const std::string &scenario = corvia::demoScenario());
    ~ServiceAccount();
    Q_DISABLE_COPY(ServiceAccount)

    /// Empty when the service runs.
    QString problem() const { return m_problem; }
    corvia::CorviaService &service() { return m_service; }
    Core &core() { return *m_core; }
    TestConnectorPlugin &plugin() { return *m_plugin; }
    Connector &connector();
    HServer &server();
    /// Where the service listens.
    HServerAddress address() const;
    /// An address of this machine at which nothing listens.
    static HServerAddress deadAddress();

    /// Logs in and applies the login; false when it fails.
    bool logIn();
    /// What goes wrong with the requests of the element `request`; empty: with all.
    void setFault(corvia::Fault::Kind kind, int number = 0, const std::string &text = {},
                  const std::string &request = {});
    int requestCount() const { return int(m_service.requests().size()); }

    /// Ends the program and starts it again with the same settings; the service goes on.
    void restart();
    /// Destroys the provider as at the end of the program.
    void releasePlugin() { m_plugin.reset(); }

private:
    void start();

    QTemporaryDir m_profile;
    corvia::CorviaService m_service;
    QString m_problem;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<TestConnectorPlugin> m_plugin;
};
