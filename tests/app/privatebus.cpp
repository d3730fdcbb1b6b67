// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "privatebus.h"

#include <QFile>

namespace {

constexpr int patience = 60'000; // milliseconds

// Everybody may do everything, and nothing is started.
const char *const Rules = R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:dir=%1</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

} // namespace

PrivateBus::PrivateBus()
{
    const QString rules = m_folder.filePath(QStringLiteral("bus.conf"));
    QFile file(rules);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(QString::fromLatin1(Rules).arg(m_folder.path()).toUtf8()) < 0)
        return;
    file.close();
    m_daemon.setStandardErrorFile(QProcess::nullDevice()); // it speaks of limits
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
                    QStringLiteral("--config-file"), rules, QStringLiteral("--print-address")});
    while (!m_daemon.canReadLine() && m_daemon.waitForReadyRead(patience)) {
    }
    m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
}

PrivateBus::~PrivateBus()
{
    for (const QString &name : qAsConst(m_names))
        QDBusConnection::disconnectFromBus(name);
    m_daemon.terminate();
    if (!m_daemon.waitForFinished(patience))
        m_daemon.kill();
}

QDBusConnection PrivateBus::connectAs(const QString &name)
{
    m_names.append(name);
    return QDBusConnection::connectToBus(m_address, name);
}
