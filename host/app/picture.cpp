// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "picture.h"

#include "logincontroller.h"

#include <halvora/hserver.h>
#include <halvora/mainwindow.h>

#include <QCoreApplication>
#include <QPixmap>
#include <QTimer>

#include <cstdlib>

namespace {

// The panels are filled in the same turn as the login; this lets them lay themselves out and be painted.
constexpr int settling = 400; // milliseconds

} // namespace

Picture::Picture(const QString &file, MainWindow *window, HServer *server, LoginController *login, QObject *parent)
    : QObject(parent)
    , m_file(file)
    , m_window(window)
{
    connect(server, &HServer::stateChanged, this, [this](HServer::State state) {
        if (state == HServer::Connected)
            QTimer::singleShot(settling, this, &Picture::save);
    });
    connect(login, &LoginController::loginFailed, this, &Picture::giveUp);
}

void Picture::save()
{
    const bool saved = m_window->grab().save(m_file);
    if (!saved)
        qCritical("The picture %s can not be saved.", qUtf8Printable(m_file));
    QCoreApplication::exit(saved ? EXIT_SUCCESS : EXIT_FAILURE);
}

void Picture::giveUp(const RequestFailure &failure)
{
    qCritical("The login failed: %s", qUtf8Printable(failure.sentence()));
    QCoreApplication::exit(EXIT_FAILURE);
}
