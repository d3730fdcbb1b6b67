// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "runningprogram.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/mainwindow.h>

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

RunningProgram::RunningProgram(const corvia::Options &serviceOptions)
    : m_service(corvia::demoScenario(), serviceOptions)
{
    std::string why;
    if (!m_service.start(&why))
        qFatal("%s", why.c_str());
}

void RunningProgram::open(const QString &pluginDirectory)
{
    Options options;
    options.serviceHost = QStringLiteral("localhost");
    options.servicePort = m_service.accountPort();
    options.authorityFile = QString::fromStdString(m_service.authorityFile());
    options.profile = m_profile.path();
    options.pluginDirectory = pluginDirectory;
    m_application = std::make_unique<Application>(options);
    m_application->start();
    QCoreApplication::processEvents(); // the end of the start
}

void RunningProgram::close()
{
    m_application->shutDown(0);
    m_application.reset();
}

HServer &RunningProgram::server()
{
    return *m_application->connectorPlugin()->connector()->server();
}

void RunningProgram::logIn(const QString &user, const QString &password)
{
    Q_EMIT window().loginRequested();
    auto *dialog = find<QDialog>("LoginDialog");
    dialog->findChild<QLineEdit *>(QStringLiteral("user"))->setText(user);
    dialog->findChild<QLineEdit *>(QStringLiteral("password"))->setText(password);
    dialog->findChild<QPushButton *>(QStringLiteral("logIn"))->click();
}
