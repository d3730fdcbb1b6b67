// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/hserver.h>

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>

class ConnectorPlugin;
class LoginDialog;
class MainWindow;
class PasswordStore;

/// Decides when to log in: at start when user name and password are known, when a person wants it, when the
/// service refuses the session word, and with growing pauses until a lost service is back. GUI thread.
class LoginController final : public QObject {
    Q_OBJECT
public:
    /// @p plugin and @p window outlive the controller.
    LoginController(ConnectorPlugin *plugin, MainWindow *window, QObject *parent = nullptr);
    ~LoginController() override;

    /// Milliseconds before the first new attempt; each further pause is twice as long, up to five minutes.
    void setFirstPause(int milliseconds);
    /// @p user or @p password may be empty; then they are what was kept, if anything was.
    void start(const QString &user, const QString &password);
    void showDialog();
    void logOut();
    /// Deletes the kept password; the login goes on, and its password is not kept again.
    void forgetPassword();

Q_SIGNALS:
    void loginFailed(const RequestFailure &failure);
    /// At start no user name or no password was known, so nothing was tried.
    void accountUnknown();

private:
    void logIn(const QString &user, const QString &password);
    void passwordFound(const QString &user, const QString &password);
    QString keptUser() const;
    void follow(HServer::State state);
    void tell(const RequestFailure &failure, bool isLogin);
    void cancelLogin();
    void relogin();
    void retryLater();
    void retry();
    void updateMenu();

    ConnectorPlugin *const m_plugin;
    MainWindow *const m_window;
    PasswordStore *const m_passwords;
    QPointer<LoginDialog> m_dialog;
    QTimer m_retry;
    QElapsedTimer m_sinceLogin;
    int m_firstPause = 5'000;
    int m_pause = 0;     ///< milliseconds; 0: no attempt has failed
    bool m_told = false; ///< whether the status bar may still tell of a failure
};
