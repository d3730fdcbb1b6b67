// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/core.h>

#include <QString>
#include <QTemporaryDir>

#include <corviaservice.h>

class ConnectorPlugin;

/// A core with a fresh profile and a running loopback account service that a connector plug-in can be pointed
/// at.
class LoopbackAccount {
public:
    explicit LoopbackAccount(const std::string &scenario = corvia::demoScenario());

    /// False when the service does not run; the test is over then.
    bool isRunning() const { return m_running; }
    Core &core() { return m_core; }
    corvia::CorviaService &service() { return m_service; }
    /// The next request of @p plugin goes to the service.
    void use(ConnectorPlugin &plugin);
    /// use() and the demo account.
    void useDemo(ConnectorPlugin &plugin);
    /// The names of the elements that the service was asked with so far.
    QStringList requestNames() const;

private:
    QTemporaryDir m_profile;
    Core m_core;
    corvia::CorviaService m_service;
    bool m_running;
};
