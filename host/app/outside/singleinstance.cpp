// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "singleinstance.h"

#include "instanceline.h"
#include "instanceserver.h"

#include <halvora/profilelock.h>

#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QThread>

namespace {

constexpr unsigned long pause = 100; // milliseconds

// False when nobody is there, or somebody who does not answer in time.
bool ask(const QString &path, const QByteArray &line, const QDeadlineTimer &deadline)
{
    QLocalSocket socket;
    const auto left = [&deadline] { return int(deadline.remainingTime()); };
    socket.connectToServer(path);
    if (!socket.waitForConnected(left()))
        return false;
    socket.write(line);
    while (!socket.canReadLine()) {
        if (!socket.waitForReadyRead(left()))
            return false;
    }
    return socket.readLine() == InstanceLine::answer();
}

} // namespace

SingleInstance::SingleInstance(const QString &folder)
    : m_folder(folder)
{
}

SingleInstance::~SingleInstance() = default;

SingleInstance::Outcome SingleInstance::take()
{
    m_lock = std::make_unique<ProfileLock>(m_folder);
    m_refusal = m_lock->refusal();
    return m_refusal.isEmpty() ? Taken : Refused;
}

SingleInstance::Outcome SingleInstance::takeOrHandOver(const QString &argument,
                                                       std::chrono::milliseconds patience)
{
    const QByteArray line = InstanceLine::write(argument);
    if (line.isEmpty()) {
        m_refusal = tr("The link or file can not be opened, because its name is too long or damaged.");
        return Refused;
    }
    const QDeadlineTimer deadline(patience);
    const QString path = InstanceServer::socketPath(m_folder);
    while (take() == Refused) {
        if (ask(path, line, deadline))
            return HandedOver;
        if (deadline.hasExpired())
            return Refused;
        QThread::msleep(pause);
    }
    return Taken;
}
