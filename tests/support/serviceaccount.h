// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "loopbackaccount.h"
#include "testconnectorplugin.h"

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
    QString problem() const { return m_account.problem(); }
    corvia::CorviaService &service() { return m_account.service(); }
    Core &core() { return m_account.core(); }
    TestConnectorPlugin &plugin() { return *m_plugin; }
    Connector &connector();
    HServer &server();
    HServerAddress address() const { return m_account.address(); }
    /// An address of this machine at which nothing listens.
    static HServerAddress deadAddress();

    /// Logs in and applies the login; false when it fails.
    bool logIn();
    /// What goes wrong with the requests of the element `request`; empty: with all.
    void setFault(corvia::Fault::Kind kind, int number = 0, const std::string &text = {},
                  const std::string &request = {});
    int requestCount() { return int(service().requests().size()); }

    /// Ends the program and starts it again with the same settings; the service goes on.
    void restart();
    /// Destroys the provider as at the end of the program.
    void releasePlugin() { m_plugin.reset(); }

private:
    void start();

    LoopbackAccount m_account;
    std::unique_ptr<TestConnectorPlugin> m_plugin;
};
