// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>

#include <QObject>

class QSettings;

/// Shares the account's connections to its news servers. So far it holds how many there may be, the account's
/// limit and the user's wish, and the settings show both. GUI thread.
class HALVORA_CONNECTOR_EXPORT HNntpDistributor : public QObject {
    Q_OBJECT
public:
    /// @p settings remembers the user's wish and outlives this object.
    explicit HNntpDistributor(QSettings &settings, QObject *parent = nullptr);

    /// The account's limit, as the account service told it last.
    int maxConnectionsMax() const;
    void setMaxConnectionsMax(int connections);
    /// The user's wish; never less than 1.
    int wantedConnections() const;
    void setWantedConnections(int connections);
    /// Back to what a new user has.
    void resetWantedConnections();
    /// What is used: the wish, inside the limit.
    int maxConnections() const;

    /// Whether the account may be used, which a login decides.
    bool isOpen() const;
    void open();
    /// Forgets the account's limit too.
    void close();

Q_SIGNALS:
    void changed();

private:
    QSettings &m_settings;
    int m_limit;
    bool m_open = false;
};
