// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>

#include <QObject>

/// Will repeat the user's saved searches. So far it holds the interval that the account service asks for, and
/// the settings show it. GUI thread.
class HALVORA_CONNECTOR_EXPORT HAutoSearchService : public QObject {
    Q_OBJECT
public:
    explicit HAutoSearchService(QObject *parent = nullptr);

    /// Seconds; 0 or less: no interval is known.
    int checkInterval() const;
    void setCheckInterval(int seconds);

Q_SIGNALS:
    void checkIntervalChanged(int seconds);

private:
    int m_checkInterval = 0;
};
