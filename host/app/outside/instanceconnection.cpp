// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "instanceconnection.h"

#include "instanceline.h"

#include <QLocalSocket>

InstanceConnection::InstanceConnection(QLocalSocket *socket, std::chrono::milliseconds patience,
                                       QObject *parent)
    : QObject(parent)
    , m_socket(socket)
{
    m_socket->setParent(this);
    m_socket->setReadBufferSize(InstanceLine::longest);
    connect(m_socket, &QLocalSocket::readyRead, this, &InstanceConnection::readLine);
    connect(m_socket, &QLocalSocket::disconnected, this, &InstanceConnection::end);
    connect(&m_patience, &QTimer::timeout, this, &InstanceConnection::end);
    m_patience.setSingleShot(true);
    m_patience.start(patience); // for all of it, so that one byte now and then gains nothing
}

void InstanceConnection::readLine()
{
    if (!m_socket->canReadLine()) {
        if (m_socket->bytesAvailable() >= InstanceLine::longest)
            end();
        return;
    }
    const std::optional<QString> argument = InstanceLine::read(m_socket->readLine());
    if (!argument)
        return end();
    disconnect(m_socket, &QLocalSocket::readyRead, this, nullptr);
    m_socket->write(InstanceLine::answer());
    m_socket->disconnectFromServer(); // once the answer is out
    Q_EMIT called(*argument);
}

void InstanceConnection::end()
{
    m_patience.stop();
    m_socket->disconnect(this);
    m_socket->abort();
    deleteLater();
}
