// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>

#include <QDateTime>
#include <QObject>

class HLoginRequest;

/// What the program knows of the provider's account as a whole. A provider's plug-in supplies the one object
/// and hands it to HContextHolder. GUI thread.
class HALVORA_CONNECTOR_EXPORT HContext : public QObject {
    Q_OBJECT
public:
    HContext();
    ~HContext() override;

    /// Takes over what a successful login told.
    void updateFromLogin(const HLoginRequest *login);
    /// When the last login succeeded; null before the first.
    QDateTime lastLogin() const;
    /// How many news servers the account has.
    int nntpHostCount() const;

Q_SIGNALS:
    void changed();

private:
    QDateTime m_lastLogin;
    int m_nntpHostCount = 0;
};
