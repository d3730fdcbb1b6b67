// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTemporaryDir>

/// A real news server on loopback, INN, run by the script that stands beside the tests. It is stopped with
/// this object, or soon after this process when that is killed.
class InnServer {
public:
    InnServer();
    ~InnServer();
    Q_DISABLE_COPY(InnServer)

    /// Why the server does not run, and what to do about it; empty when it runs.
    QString problem() const { return m_problem; }
    quint16 port() const { return m_port; }
    /// TLS from the first byte.
    quint16 tlsPort() const { return m_tlsPort; }
    /// The file of the certificate that the TLS port shows; it signs itself.
    QString certificateFile() const { return m_certificateFile; }

private:
    QString runScript(const QStringList &arguments);

    QTemporaryDir m_folder;
    QString m_problem;
    quint16 m_port = 0;
    quint16 m_tlsPort = 0;
    QString m_certificateFile;
};
