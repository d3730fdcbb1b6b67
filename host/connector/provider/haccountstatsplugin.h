// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>
#include <halvora/iplugin.h>

#include <QObject>

class Connector;

/// Will show what the account used of its plan over time. So far it has a title.
class HALVORA_CONNECTOR_EXPORT HAccountStatsPlugin final : public QObject, public IPlugin {
    Q_OBJECT
public:
    explicit HAccountStatsPlugin(Connector *connector);

    QString title() const;

private:
    Connector *const m_connector;
};
