// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "logincontroller.h"

#include "logindialog.h"
#include "passwordstore.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/core.h>
#include <halvora/hlog.h>
#include <halvora/mainwindow.h>

#include <QSettings>

#include <utility>

namespace {

constexpr int longestPause = 300'000;   // milliseconds
constexpr qint64 lastingLogin = 60'000; // milliseconds

QString userKey()
{
    return QStringLiteral("Account/UserName");
}

// Nothing will change until a person does something about it.
bool needsPerson(const RequestFailure &failure)
{
    switch (failure.kind()) {
    case RequestFailure::Kind::CredentialsTest:
        return !failure.detail().isEmpty();
    case RequestFailure::Kind::RefusedCredentials:
    case RequestFailure::Kind::Refused:
    case RequestFailure::Kind::Unwritable:
        return true;
    default:
        return false;
    }
}

bool isOwnDoing(const RequestFailure &failure)
{
    return failure.kind() == RequestFailure::Kind::LoggedOut ||
           failure.kind() == RequestFailure::Kind::ShuttingDown;
}

} // namespace

LoginController::LoginController(ConnectorPlugin *plugin, MainWindow *window, QObject *parent)
    : QObject(parent)
    , m_plugin(plugin)
    , m_window(window)
    , m_passwords(new PasswordStore(this))
{
    HServer *server = plugin->connector()->server();
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &LoginController::retry);
    connect(server, &HServer::stateChanged, this, &LoginController::follow);
    connect(server, &HServer::requestFailed, this, &LoginController::tell);
    connect(server, &HServer::sessionRefused, this, &LoginController::relogin);
    connect(m_passwords, &PasswordStore::found, this, &LoginController::passwordFound);
    connect(window, &MainWindow::loginRequested, this, &LoginController::showDialog);
    connect(window, &MainWindow::logoutRequested, this, &LoginController::logOut);
    updateMenu();
}

LoginController::~LoginController() = default;

void LoginController::setFirstPause(int milliseconds)
{
    m_firstPause = milliseconds;
}

void LoginController::start(const QString &user, const QString &password)
{
    const QString name = user.isEmpty() ? keptUser() : user;
    // A person may have been quicker than what handed the password over.
    if (!m_plugin->connector()->password().isEmpty())
        return;
    m_plugin->connector()->setAccount(name, password);
    if (!name.isEmpty() && !password.isEmpty())
        logIn(name, password);
    else if (!name.isEmpty())
        m_passwords->look(name);
    else
        Q_EMIT accountUnknown();
    if (name.isEmpty() && !password.isEmpty())
        m_window->showNotice(tr("A password was given, but nobody said whose it is."));
    updateMenu();
}

void LoginController::passwordFound(const QString &user, const QString &password)
{
    const Connector *connector = m_plugin->connector();
    const bool stillWanted = connector->username() == user && connector->password().isEmpty();
    if (stillWanted && !password.isEmpty())
        logIn(user, password);
    else if (stillWanted)
        Q_EMIT accountUnknown();
}

void LoginController::logIn(const QString &user, const QString &password)
{
    HLog::addSecret(password);
    HLog::addSecret(user);
    m_retry.stop();
    m_plugin->connector()->setAccount(user, password);
    m_plugin->startLogin();
}

void LoginController::showDialog()
{
    if (!m_dialog) {
        m_dialog = new LoginDialog(m_plugin->loginPixmap(), m_window);
        m_dialog->setAttribute(Qt::WA_DeleteOnClose);
        m_dialog->setAccount(m_plugin->connector()->username(), QString());
        connect(m_dialog, &LoginDialog::loginRequested, this, &LoginController::logIn);
        connect(m_dialog, &QDialog::rejected, this, &LoginController::cancelLogin);
        // It is destroyed a little later, and must not be shown again until then.
        connect(m_dialog, &QDialog::finished, this, [this] { m_dialog.clear(); });
        m_dialog->setBusy(m_plugin->connector()->server()->connectorState() == HServer::Connecting);
    }
    m_dialog->open();
}

// Without the password nothing tries again.
void LoginController::cancelLogin()
{
    Connector *connector = m_plugin->connector();
    if (connector->server()->connectorState() != HServer::Connecting)
        return;
    m_retry.stop();
    connector->setAccount(connector->username(), QString());
    connector->server()->cancelLogin();
}

void LoginController::logOut()
{
    // The user name that was tried last need not be the one that was logged in.
    QStringList users{m_plugin->connector()->username(), keptUser()};
    users.removeDuplicates();
    users.removeAll(QString());
    m_retry.stop();
    m_pause = 0;
    m_plugin->connector()->logOut();
    m_plugin->core()->settings().remove(userKey());
    for (const QString &user : qAsConst(users))
        m_passwords->forget(user);
    updateMenu();
}

void LoginController::forgetPassword()
{
    const Connector *connector = m_plugin->connector();
    const QString user = keptUser();
    if (!user.isEmpty())
        m_passwords->discard(user, user == connector->username() ? connector->password() : QString());
}

QString LoginController::keptUser() const
{
    return m_plugin->core()->settings().value(userKey()).toString();
}

void LoginController::follow(HServer::State state)
{
    if (m_dialog)
        m_dialog->setBusy(state == HServer::Connecting);
    if (state == HServer::Connected) {
        const Connector *connector = m_plugin->connector();
        m_sinceLogin.start();
        if (std::exchange(m_told, false))
            m_window->showNotice(QString());
        m_retry.stop();
        m_plugin->core()->settings().setValue(userKey(), connector->username());
        m_passwords->keep(connector->username(), connector->password());
        if (m_dialog)
            m_dialog->accept();
    } else if (state == HServer::ServiceLost) {
        retryLater();
    }
    updateMenu();
}

void LoginController::tell(const RequestFailure &failure, bool isLogin)
{
    if (isOwnDoing(failure)) {
        // Whoever logs in again at once meets the attempt that the logout has just ended.
        if (isLogin && failure.kind() == RequestFailure::Kind::LoggedOut &&
            !m_plugin->connector()->password().isEmpty())
            m_plugin->startLogin();
        return;
    }
    m_told = true;
    m_window->showNotice(failure.sentence());
    if (!isLogin)
        return;
    // Without an answer the password was not tested.
    if (failure.kind() == RequestFailure::Kind::CredentialsTest && failure.detail().isEmpty())
        retryLater();
    if (needsPerson(failure)) {
        m_retry.stop();
        showDialog();
    }
    if (m_dialog) {
        const bool fromNews = failure.kind() == RequestFailure::Kind::CredentialsTest;
        m_dialog->setBusy(false);
        m_dialog->setFailure(failure.sentence(), fromNews ? failure.detail() : QString());
    }
    Q_EMIT loginFailed(failure);
}

// A service that refuses each session word soon after it gave it is not asked without a pause.
void LoginController::relogin()
{
    if (m_sinceLogin.isValid() && m_sinceLogin.elapsed() > lastingLogin)
        m_plugin->startLogin();
    else
        retryLater();
}

void LoginController::retryLater()
{
    if (m_plugin->connector()->password().isEmpty() || m_retry.isActive())
        return;
    const bool lasted = m_sinceLogin.isValid() && m_sinceLogin.elapsed() > lastingLogin;
    m_pause = m_pause == 0 || lasted ? m_firstPause : qMin(m_pause * 2, longestPause);
    m_sinceLogin.invalidate();
    m_retry.start(m_pause);
}

void LoginController::retry()
{
    // Not under the hands of a person who is typing something better.
    if (m_dialog && m_dialog->isBeingFilledIn())
        m_retry.start(m_pause);
    else
        m_plugin->startLogin();
}

// There is something to forget as soon as the user's name is known.
void LoginController::updateMenu()
{
    const Connector *connector = m_plugin->connector();
    const HServer::State state = connector->server()->connectorState();
    m_window->setLoginPossible(state != HServer::Connected,
                               state != HServer::Disconnected || !connector->username().isEmpty());
}
