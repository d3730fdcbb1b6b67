// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "application.h"
#include "logincontroller.h"

#include <halvora/core.h>
#include <halvora/mainwindow.h>

#include <QTemporaryDir>

#include <corviaservice.h>

/// The whole program in this process, with the real plug-in, beside a loopback account service.
class RunningProgram {
public:
    explicit RunningProgram(const corvia::Options &serviceOptions = corvia::Options());

    /// Makes the program anew over the same profile; the one before must have been closed.
    void open(const QString &pluginDirectory = QStringLiteral(PLUGIN_DIRECTORY));
    void close();

    Application &application() { return *m_application; }
    MainWindow &window() { return *m_application->window(); }
    corvia::CorviaService &service() { return m_service; }
    QString profile() const { return m_profile.path(); }
    HServer &server();

    /// As a person does in the dialog, which it opens when it is not there.
    void logIn(const QString &user, const QString &password);
    template <typename T> T *find(const char *name) { return window().findChild<T *>(QLatin1String(name)); }

private:
    QTemporaryDir m_profile;
    corvia::CorviaService m_service;
    std::unique_ptr<Application> m_application;
};
