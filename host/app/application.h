// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "commandline.h"

#include <halvora/benchmark.h>
#include <halvora/hserver.h>

#include <QObject>
#include <QVector>

#include <memory>

class AbstractProvider;
class ConnectorPlugin;
class Core;
class CorePluginInterface;
class DetailsDock;
class LoginController;
class MainWindow;
class OutsideLink;

/// The program from its start to its end: makes core and window, loads the plug-ins and drives them through
/// their interface, each callback once and at its moment. GUI thread.
class Application final : public QObject {
    Q_OBJECT
public:
    explicit Application(const Options &options);
    /// Shuts everything down unless shutDown() was called.
    ~Application() override;

    /// Shows the window; returns before anybody is logged in.
    void start();
    /// Ends what runs and destroys plug-ins, window and core, in that order. Where the worker does not end in
    /// time, the process is left with @p exitCode at once, settings and statistics saved.
    void shutDown(int exitCode);
    /// What a later start of the program wants: the window in front and, unless it is empty, @p argument
    /// opened.
    void answerCall(const QString &argument);
    /// Opens what another program or the desktop asks for: a link to a group of files or a local file, given
    /// as a link or an absolute path. Anything else is refused with a sentence in the status bar.
    void openFromOutside(const QString &text);

    Core *core() const;
    MainWindow *window() const;
    LoginController *login() const;
    /// The provider's, or null when no plug-in offers one.
    ConnectorPlugin *connectorPlugin() const;

private:
    void loadPlugins(const QString &directory);
    void addPlugin(CorePluginInterface *plugin, const QString &file);
    void useService();
    void polishPlugins();
    void connectWindow();
    void addDetails();
    void saveReport();
    void showSettings();
    void showState(HServer::State state);
    void changeLanguage();
    QString ownScheme() const;
    bool open(const OutsideLink &link);
    void openFile(const QString &path);
    void chooseFile();
    void readPassword();
    void takePicture(const QString &file);

    const Options m_options;
    Benchmark m_benchmark;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<MainWindow> m_window;
    DetailsDock *m_details = nullptr; ///< the window's
    std::unique_ptr<LoginController> m_login;
    QVector<CorePluginInterface *> m_plugins; ///< owned by their libraries
    AbstractProvider *m_provider = nullptr;   ///< one of the plug-ins
    QStringList m_notices;
    bool m_down = false;
};
