// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/core.h>
#include <halvora/hserveraddress.h>

#include <QString>
#include <QTemporaryDir>

#include <corviaservice.h>

#include <memory>

class ConnectorPlugin;

/// A core with a fresh profile and a running loopback account service that a connector plug-in can be pointed
/// at.
class LoopbackAccount {
public:
    explicit LoopbackAccount(const std::string &scenario = corvia::demoScenario(),
                             const corvia::Options &options = corvia::Options());
    ~LoopbackAccount();
    Q_DISABLE_COPY(LoopbackAccount)

    /// False when the service does not run; the test is over then.
    bool isRunning() const { return m_problem.isEmpty(); }
    /// Why it does not run.
    QString problem() const { return m_problem; }
    Core &core() { return *m_core; }
    corvia::CorviaService &service() { return m_service; }
    /// Where the service listens.
    HServerAddress address() const;
    /// The next request of @p plugin goes to the service.
    void use(ConnectorPlugin &plugin);
    /// use() and the demo account.
    void useDemo(ConnectorPlugin &plugin);
    /// The names of the elements that the service was asked with so far.
    QStringList requestNames() const;
    /// A new core over the same profile; what knows the one before must be gone. The service goes on.
    void restartCore();

private:
    QTemporaryDir m_profile;
    corvia::CorviaService m_service;
    QString m_problem;
    std::unique_ptr<Core> m_core;
};
