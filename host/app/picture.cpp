// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "picture.h"

#include "logincontroller.h"

#include <halvora/hserver.h>
#include <halvora/mainwindow.h>

#include <QCoreApplication>
#include <QPixmap>

#include <cstdlib>

namespace {

// Bookmarks and newsgroups come after the login; this lets them arrive and be painted.
constexpr int settling = 1500; // milliseconds

// More than one request may take; whoever hands over the password may never do it, and a keyring never
// answer.
constexpr int patience = 60'000; // milliseconds

} // namespace

Picture::Picture(const QString &file, MainWindow *window, HServer *server, LoginController *login,
                 QObject *parent)
    : QObject(parent)
    , m_file(file)
    , m_window(window)
{
    connect(server, &HServer::stateChanged, this, [this](HServer::State state) {
        if (state != HServer::Connected)
            return;
        m_patience.stop();
        QTimer::singleShot(settling, this, &Picture::save);
    });
    if (login)
        setLogin(login);
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, [this] { giveUp(tr("It took too long.")); });
    setPatience(patience);
}

void Picture::setLogin(LoginController *login)
{
    connect(login, &LoginController::loginFailed, this,
            [this](const RequestFailure &failure) { giveUp(failure.sentence()); });
    connect(login, &LoginController::accountUnknown, this,
            [this] { giveUp(tr("No user name or no password is known.")); });
}

void Picture::setPatience(int milliseconds)
{
    m_patience.start(milliseconds);
}

void Picture::save()
{
    const bool saved = m_window->grab().save(m_file);
    if (!saved)
        qCritical("The picture %s can not be saved.", qUtf8Printable(m_file));
    QCoreApplication::exit(saved ? EXIT_SUCCESS : EXIT_FAILURE);
}

void Picture::giveUp(const QString &why)
{
    qCritical("The login failed: %s", qUtf8Printable(why));
    QCoreApplication::exit(EXIT_FAILURE);
}
