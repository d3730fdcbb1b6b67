// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "application.h"

#include "detailsdock.h"
#include "logincontroller.h"
#include "messagenotifier.h"
#include "outsidelink.h"
#include "passwordpipe.h"
#include "picture.h"
#include "settingsdialog.h"

#include <halvora/abstractprovider.h>
#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/core.h>
#include <halvora/hlog.h>
#include <halvora/linkopener.h>
#include <halvora/localemanager.h>
#include <halvora/mainwindow.h>
#include <halvora/storagemanager.h>

#include <QApplication>
#include <QDockWidget>
#include <QFileDialog>
#include <QSaveFile>

void Application::connectWindow()
{
    connect(m_window.get(), &MainWindow::settingsRequested, this, &Application::showSettings);
    connect(m_window.get(), &MainWindow::reportRequested, this, &Application::saveReport);
    connect(m_window.get(), &MainWindow::closing, qApp, &QApplication::quit);
    connect(m_window.get(), &MainWindow::linkRequested, this,
            [this](const QUrl &url) { m_core->links().open(url); });
    connect(m_window.get(), &MainWindow::fileRequested, this, &Application::chooseFile);
    connect(m_window.get(), &MainWindow::fileDropped, this, &Application::openFromOutside);
    connect(&m_core->links(), &LinkOpener::refused, m_window.get(), &MainWindow::showNotice);
    connect(m_core->storage(), &StorageManager::writeProblemChanged, this, &Application::showLastingNotice);
    connect(m_core->locale(), &LocaleManager::languageChanged, this, &Application::changeLanguage);
}

void Application::connectProvider()
{
    if (!m_provider) {
        m_window->setOnlineState(MainWindow::Offline, tr("No provider plug-in is loaded"));
        m_window->setLoginPossible(false, false);
        return;
    }
    m_core->links().setOwnScheme(ownScheme(),
                                 [this](const QUrl &url) { return open(OutsideLink::parseOwn(url)); });
    HServer *server = m_provider->connectorPlugin()->connector()->server();
    connect(server, &HServer::stateChanged, this, &Application::showState);
    showState(server->connectorState());
    new MessageNotifier(m_core->settings(), m_provider->connectorPlugin()->connector()->messages(),
                        m_window.get(), m_window.get());
}

// It is wide, so it shares the place of another panel. Nobody sees it before there is something in it.
void Application::addDetails()
{
    m_details = new DetailsDock(m_provider ? m_provider->connectorPlugin()->connector() : nullptr);
    QDockWidget *neighbour = nullptr;
    const auto docks = m_window->findChildren<QDockWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QDockWidget *dock : docks) {
        if (m_window->dockWidgetArea(dock) == Qt::BottomDockWidgetArea)
            neighbour = dock;
    }
    m_window->addToolWidget(Qt::BottomDockWidgetArea, m_details);
    if (neighbour)
        m_window->tabifyDockWidget(neighbour, m_details);
    m_details->hide();
}

void Application::showState(HServer::State state)
{
    const ConnectorPlugin *plugin = m_provider->connectorPlugin();
    const HServerAddress address = plugin->connector()->server()->currentAddress();
    const QString service = tr("account service %1").arg(address.host());
    switch (state) {
    case HServer::Disconnected:
        return m_window->setOnlineState(MainWindow::Offline,
                                        tr("%1 – %2").arg(plugin->offlineText(), service));
    case HServer::Connecting:
        return m_window->setOnlineState(MainWindow::Connecting, tr("Logging in – %1").arg(service));
    case HServer::Connected:
        return m_window->setOnlineState(MainWindow::Connected,
                                        tr("%1 – %2").arg(plugin->onlineText(), service));
    case HServer::ServiceLost:
        return m_window->setOnlineState(MainWindow::Lost, tr("No connection – %1").arg(service));
    }
}

void Application::changeLanguage()
{
    showLastingNotice();
    if (!m_isReady)
        return; // init() takes the language over
    for (CorePluginInterface *plugin : qAsConst(m_plugins))
        plugin->onLanguageChange();
    if (!m_provider)
        return m_window->setOnlineState(MainWindow::Offline, tr("No provider plug-in is loaded"));
    m_window->setWindowTitle(m_provider->windowTitle());
    showState(m_provider->connectorPlugin()->connector()->server()->connectorState());
}

void Application::showSettings()
{
    auto *dialog = new SettingsDialog(m_core.get(), m_isReady ? connectorPlugin() : nullptr, m_window.get());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void Application::saveReport()
{
    auto *dialog = new QFileDialog(m_window.get(), tr("Save a Report"), QString(), tr("Text files (*.txt)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("txt"));
    dialog->selectFile(QStringLiteral("halvora-report.txt"));
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &path) {
        QSaveFile file(path);
        const bool saved =
            file.open(QIODevice::WriteOnly) && file.write(HLog::report().toUtf8()) >= 0 && file.commit();
        m_window->showNotice(saved ? tr("The report was saved to %1.").arg(path)
                                   : tr("The report could not be saved: %1").arg(file.errorString()));
    });
    dialog->open();
}

void Application::readPassword()
{
    if (!m_login)
        return;
    if (m_options.passwordDescriptor < 0) {
        m_login->start(m_options.user, QString());
        return;
    }
    auto *pipe = new PasswordPipe(m_options.passwordDescriptor, this);
    connect(pipe, &PasswordPipe::finished, m_login.get(),
            [this](const QString &password) { m_login->start(m_options.user, password); });
}

void Application::takePicture(const QString &file)
{
    if (m_picture)
        return m_picture->setLogin(m_login.get());
    if (!m_provider) {
        qCritical("There is no account to log in to.");
        QMetaObject::invokeMethod(
            qApp, [] { QCoreApplication::exit(EXIT_FAILURE); }, Qt::QueuedConnection);
        return;
    }
    m_picture = new Picture(file, m_window.get(), m_provider->connectorPlugin()->connector()->server(),
                            m_login.get(), this);
}
