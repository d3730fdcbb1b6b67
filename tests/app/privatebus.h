// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QTemporaryDir>

/// A message bus of its own, run by the real daemon; it ends with this object.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    Q_DISABLE_COPY(PrivateBus)

    /// Empty when the bus does not run; the test is over then.
    QString address() const { return m_address; }
    /// A connection that ends with the bus.
    QDBusConnection connectAs(const QString &name);

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QStringList m_names;
};
