// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "innserver.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QMap>
#include <QProcess>

namespace {

QMap<QString, QString> assignmentsIn(const QString &fileName)
{
    QMap<QString, QString> assignments;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return assignments;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString &line : lines)
        assignments.insert(line.section(QLatin1Char('='), 0, 0), line.section(QLatin1Char('='), 1));
    return assignments;
}

} // namespace

// Not below the home folder, which the server's own user may not enter.
InnServer::InnServer()
    : m_folder(QDir::tempPath() + QStringLiteral("/halvora-inn-XXXXXX"))
{
    QFile::setPermissions(m_folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                               QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther |
                                               QFile::ExeOther);
    const QString owner = QString::number(QCoreApplication::applicationPid());
    m_problem = runScript({QStringLiteral("start"), m_folder.path(), owner});
    const auto assignments = assignmentsIn(m_folder.filePath(QStringLiteral("ports")));
    m_port = assignments.value(QStringLiteral("PORT")).toUShort();
    m_tlsPort = assignments.value(QStringLiteral("TLSPORT")).toUShort();
    m_certificateFile = assignments.value(QStringLiteral("CERT"));
}

InnServer::~InnServer()
{
    runScript({QStringLiteral("stop"), m_folder.path()});
}

QString InnServer::runScript(const QStringList &arguments)
{
    constexpr int WatchdogMs = 60000;
    QProcess script;
    script.setProcessChannelMode(QProcess::MergedChannels);
    script.start(QStringLiteral(HALVORA_INN_SCRIPT), arguments);
    if (!script.waitForFinished(WatchdogMs))
        return QStringLiteral("the script did not end: ") + script.errorString();
    if (script.exitStatus() == QProcess::NormalExit && script.exitCode() == 0)
        return {};
    return QString::fromLocal8Bit(script.readAll()).trimmed();
}
