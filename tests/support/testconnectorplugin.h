// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorplugin.h>

#include <functional>

/// A provider made of fixed answers, for tests that need a Connector. What a login and a status request are
/// is for the test to say.
class TestConnectorPlugin : public ConnectorPlugin {
    Q_OBJECT
public:
    explicit TestConnectorPlugin(Core *core);
    ~TestConnectorPlugin() override;

    std::function<void()> onStartLogin;
    std::function<void()> onRefreshStatus;

    QAction *aboutAction() const override;
    QString statsConfigName() const override;
    QString displayName() const override;
    QString platformDisplayName() const override;
    QString productName() const override;
    QString productTag() const override;
    QString emptyText() const override;
    void startLogin() override;
    void refreshStatus() override;
    HJobResultHandler *jobResultHandler() const override;
    QPixmap loginPixmap() const override;
    bool isPreviewSupported() const override;
    bool isAccountRequired() const override;
    bool isTrialSupported() const override;
    QString detailsUrl(const HStorageId &id) const override;
    QString urlScheme() const override;
    QList<HServerAddress> serverAddresses() const override;
    bool addressFlag() const override;

private:
    QAction *const m_aboutAction;
    HJobResultHandler *const m_jobResultHandler;
};
