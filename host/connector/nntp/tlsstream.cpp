// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "tlsstream.h"

#include "certificatenames.h"
#include "waitbudget.h"

#include <QFile>
#include <QNetworkProxy>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslSocket>

#include <algorithm>

#include <unistd.h>

namespace {

// A flood beyond that waits at the server's end.
constexpr qint64 ReadBuffer = qint64(64) * 1024;

QSslConfiguration tlsConfiguration()
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setProtocol(QSsl::TlsV1_2OrLater);
    configuration.setPeerVerifyMode(QSslSocket::VerifyPeer);
    return configuration;
}

/// Trusts the authorities in @p fileName besides the system's.
void addAuthorities(QSslSocket &socket, const QString &fileName)
{
    QFile file(fileName);
    if (fileName.isEmpty() || !file.open(QIODevice::ReadOnly))
        return;
    // Any other way to name authorities makes Qt read all of the system's at once instead of the one it
    // needs, which takes several times as long as a stop may go unseen.
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    socket.addCaCertificates(QSslCertificate::fromDevice(&file, QSsl::Pem));
    QT_WARNING_POP
}

} // namespace

TlsStream::TlsStream(int descriptor)
    : m_socket(std::make_unique<QSslSocket>())
{
    m_socket->setProxy(QNetworkProxy::NoProxy);
    if (m_socket->setSocketDescriptor(descriptor))
        m_socket->setReadBufferSize(ReadBuffer);
    else
        ::close(descriptor);
}

TlsStream::~TlsStream() = default;

bool TlsStream::start(const QString &host, const QString &authorityFile, const WaitBudget &budget)
{
    m_socket->setSslConfiguration(tlsConfiguration());
    addAuthorities(*m_socket, authorityFile);
    m_socket->setPeerVerifyName(host);
    m_socket->startClientEncryption();
    while (!m_socket->isEncrypted()) {
        if (budget.isOver() || !isOpen())
            return false;
        m_socket->waitForEncrypted(static_cast<int>(budget.slice().count()));
    }
    return certificatenames::include(m_socket->peerCertificate(), host);
}

bool TlsStream::isOpen() const
{
    return m_socket->state() == QAbstractSocket::ConnectedState;
}

int TlsStream::read(char *to, int room)
{
    return static_cast<int>(std::max<qint64>(m_socket->read(to, room), 0));
}

void TlsStream::wait(std::chrono::milliseconds time)
{
    m_socket->waitForReadyRead(static_cast<int>(time.count()));
}

bool TlsStream::write(const QByteArray &bytes)
{
    if (m_socket->write(bytes) != bytes.size())
        return false;
    m_socket->flush();
    return true;
}
