// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "commandline.h"

#include <halvora/benchmark.h>
#include <halvora/hserver.h>

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QVector>

#include <functional>
#include <memory>
#include <vector>

class AbstractProvider;
class ConnectorPlugin;
class Core;
class CorePluginInterface;
class DetailsDock;
class LoginController;
class MainWindow;
class OutsideLink;
class OwnPrivateData;
class Picture;

/// The program from its start to its end: makes core and window, loads the plug-ins and drives them through
/// their interface, each callback once and at its moment. While another program holds the provider's
/// database, the window comes first: the plug-ins are initialised when the lock goes. GUI thread.
class Application final : public QObject {
    Q_OBJECT
public:
    /// How many links, files and calls of later starts are kept while the program waits for its database.
    static constexpr int maxKeptCalls = 100;

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
    /// Null without a provider and while the program waits for its database.
    LoginController *login() const;
    /// The provider's, or null when no plug-in offers one.
    ConnectorPlugin *connectorPlugin() const;

private:
    void loadPlugins(const QString &directory);
    void addPlugin(CorePluginInterface *plugin, const QString &file);
    void useService();
    bool isStoreLocked() const;
    void waitForStore();
    void retryStore();
    void whenReady(std::function<void()> call);
    void makeReady();
    void polishPlugins();
    void begin();
    void connectWindow();
    void connectProvider();
    void showLastingNotice();
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
    std::unique_ptr<OwnPrivateData> m_ownPrivateData;
    QVector<CorePluginInterface *> m_plugins; ///< owned by their libraries
    AbstractProvider *m_provider = nullptr;   ///< one of the plug-ins
    QStringList m_notices;
    QTimer *const m_storeTimer = new QTimer(this); ///< runs while the program waits for its database
    std::vector<std::function<void()>> m_keptCalls;
    QPointer<Picture> m_picture;
    bool m_isReady = false; ///< the plug-ins are initialised and polished
    bool m_down = false;
};
