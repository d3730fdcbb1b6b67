// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "instanceserver.h"

#include "instanceconnection.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>
#include <QStandardPaths>

#include <sys/socket.h>
#include <unistd.h>

namespace {

// The socket's own permissions say the same, where the file system keeps to them.
bool isSameUser(const QLocalSocket &socket)
{
    ucred peer{};
    socklen_t size = sizeof peer;
    return ::getsockopt(int(socket.socketDescriptor()), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == ::geteuid();
}

} // namespace

QString InstanceServer::socketPath(const QString &folder)
{
    const QString place = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (place.isEmpty())
        return {};
    // The path itself may be longer than a socket's may be.
    const QByteArray name = QCryptographicHash::hash(QFile::encodeName(QFileInfo(folder).canonicalFilePath()),
                                                     QCryptographicHash::Sha256);
    return QStringLiteral("%1/halvora-%2").arg(place, QString::fromLatin1(name.toHex().left(16)));
}

InstanceServer::InstanceServer()
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &InstanceServer::welcome);
}

bool InstanceServer::listen(const QString &path)
{
    if (path.isEmpty())
        return false;
    QLocalServer::removeServer(path);
    return m_server.listen(path);
}

void InstanceServer::setPatience(std::chrono::milliseconds patience)
{
    m_patience = patience;
}

QString InstanceServer::errorString() const
{
    return m_server.errorString();
}

void InstanceServer::welcome()
{
    while (QLocalSocket *socket = m_server.nextPendingConnection()) {
        if (m_open >= mostConnections || !isSameUser(*socket)) {
            socket->abort();
            socket->deleteLater();
            continue;
        }
        ++m_open;
        auto *connection = new InstanceConnection(socket, m_patience, this);
        connect(connection, &InstanceConnection::called, this, &InstanceServer::called);
        connect(connection, &QObject::destroyed, this, [this] { --m_open; });
    }
}
