// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>

#include <QObject>

class Connector;

/// Will take the results of download jobs. So far it only knows whose jobs they are.
class HALVORA_CONNECTOR_EXPORT HJobResultHandler : public QObject {
    Q_OBJECT
public:
    HJobResultHandler(Connector *connector, QObject *parent);

    Connector *connector() const;

private:
    Connector *const m_connector;
};
