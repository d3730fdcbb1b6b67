// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>
#include <halvora/hserveraddress.h>

#include <QList>

/// The addresses of an account service, one of them in use. A failure moves the next request to the next
/// address; after the last one comes the first. GUI thread.
class HALVORA_CONNECTOR_EXPORT HServerAddressRotator {
public:
    HServerAddressRotator(const QString &configName, const QList<HServerAddress> &addresses);
    Q_DISABLE_COPY(HServerAddressRotator)

    QString configName() const;
    QList<HServerAddress> addresses() const;
    /// A null address when there is none.
    HServerAddress current() const;
    void rotate();

private:
    const QString m_configName;
    const QList<HServerAddress> m_addresses;
    int m_current = 0;
};
