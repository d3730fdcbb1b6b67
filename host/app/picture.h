// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

class HServer;
class LoginController;
class MainWindow;
class RequestFailure;

/// Saves one picture of the main window after the first login and ends the program; with an error when the
/// login fails or the picture can not be saved. GUI thread.
class Picture final : public QObject {
    Q_OBJECT
public:
    Picture(const QString &file, MainWindow *window, HServer *server, LoginController *login, QObject *parent);

private:
    void save();
    void giveUp(const RequestFailure &failure);

    const QString m_file;
    MainWindow *const m_window;
};
