// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

class HServer;
class LoginController;
class MainWindow;

/// Saves one picture of the main window after the first login and ends the program; with an error when the
/// login fails, nobody is known to log in, the picture can not be saved or nothing of it happens in time. GUI
/// thread.
class Picture final : public QObject {
    Q_OBJECT
public:
    /// @p login may be null, see setLogin().
    Picture(const QString &file, MainWindow *window, HServer *server, LoginController *login,
            QObject *parent);

    /// Ends the program when @p login fails, for a picture that waited for it.
    void setLogin(LoginController *login);

    /// Milliseconds from now until the program ends without a picture.
    void setPatience(int milliseconds);

private:
    void save();
    void giveUp(const QString &why);

    const QString m_file;
    MainWindow *const m_window;
    QTimer m_patience;
};
