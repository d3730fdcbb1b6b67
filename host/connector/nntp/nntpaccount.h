// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/nntphost.h>

#include <QList>
#include <QString>

/// Who reads news, and where: what a connection needs to know of the account. A plain value.
struct NntpAccount {
    QList<NntpHost> hosts; ///< in the order in which they are tried
    QString user;
    QString password;

    /// Whether there is nobody to log in, or nowhere.
    bool isNull() const { return hosts.isEmpty() || user.isEmpty() || password.isEmpty(); }

    friend bool operator==(const NntpAccount &one, const NntpAccount &other)
    {
        return one.hosts == other.hosts && one.user == other.user && one.password == other.password;
    }
    friend bool operator!=(const NntpAccount &one, const NntpAccount &other) { return !(one == other); }
};
