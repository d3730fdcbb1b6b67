// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "nntpconnection.h"

#include "tcpdial.h"
#include "waitbudget.h"

#include <halvora/core.h>
#include <halvora/trafficmeter.h>

#include <QFile>
#include <QNetworkProxy>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslSocket>

#include <unistd.h>

namespace {

// A flood beyond so many lines of the longest kind waits at the server's end.
constexpr qint64 BufferedLines = 16;

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

NntpConnection::NntpConnection(Core &core, int longestLine)
    : m_core(core)
    , m_longestLine(longestLine)
    , m_lines(longestLine)
{
}

NntpConnection::~NntpConnection() = default;

bool NntpConnection::open(const QString &host, quint16 port, bool ssl, const WaitBudget &budget)
{
    close();
    const int descriptor = TcpDial::open(host, port, budget);
    if (descriptor < 0)
        return false;
    m_socket = std::make_unique<QSslSocket>();
    m_socket->setProxy(QNetworkProxy::NoProxy);
    if (!m_socket->setSocketDescriptor(descriptor)) {
        ::close(descriptor);
        close();
        return false;
    }
    m_socket->setReadBufferSize(BufferedLines * m_longestLine);
    if (ssl && !startTls(host, budget))
        close();
    return isOpen();
}

bool NntpConnection::startTls(const QString &host, const WaitBudget &budget)
{
    m_socket->setSslConfiguration(tlsConfiguration());
    addAuthorities(*m_socket, m_core.authorityFile());
    m_socket->setPeerVerifyName(host);
    m_socket->startClientEncryption();
    while (!m_socket->isEncrypted()) {
        if (budget.isOver() || !isOpen())
            return false;
        m_socket->waitForEncrypted(static_cast<int>(budget.slice().count()));
    }
    return true;
}

bool NntpConnection::isOpen() const
{
    return m_socket && m_socket->state() == QAbstractSocket::ConnectedState;
}

void NntpConnection::close()
{
    m_socket.reset();
    m_lines.clear();
}

std::optional<QByteArray> NntpConnection::readLine(const WaitBudget &budget)
{
    while (!budget.isOver()) {
        if (auto line = m_lines.takeLine())
            return line;
        if (!receive(budget))
            break;
    }
    close();
    return std::nullopt;
}

bool NntpConnection::receive(const WaitBudget &budget)
{
    while (m_socket && !m_lines.isTooLong() && !budget.isOver()) {
        if (fetch())
            return true;
        if (!isOpen())
            break;
        m_socket->waitForReadyRead(static_cast<int>(budget.slice().count()));
    }
    close();
    return false;
}

bool NntpConnection::hasUnread()
{
    if (isOpen())
        m_socket->waitForReadyRead(0);
    fetch();
    return !m_lines.isEmpty();
}

bool NntpConnection::send(const QByteArray &line)
{
    if (!isOpen() || m_socket->write(line) != line.size())
        return false;
    // Whatever the system does not take now goes out while the reply is awaited.
    m_socket->flush();
    return true;
}

/// False when nothing has arrived.
bool NntpConnection::fetch()
{
    if (!m_socket)
        return false;
    const QByteArray bytes = m_socket->readAll();
    if (bytes.isEmpty())
        return false;
    m_core.traffic().addNntpDown(bytes.size());
    m_received += bytes.size();
    m_lines.append(bytes);
    return true;
}
