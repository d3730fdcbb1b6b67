// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>
#include <halvora/urlinfo.h>

#include <QHash>
#include <QObject>
#include <QPointer>

#include <atomic>
#include <memory>
#include <mutex>

class LinkOpener;
class LocaleManager;
class MainWindow;
class PlatformManager;
class PluginManager;
class PrivateDataRegistry;
class QDomElement;
class QSettings;
class QStyle;
class SettingsRegistry;
class StorageManager;
class TrafficMeter;

/// A newer version of the program that the account service told of.
struct SoftwareUpdate {
    QString version;
    QString url; ///< as the service gave it; whoever opens it checks it first
    QString note;
};

/// The application's core: one object a process, made by the application and handed to every plug-in's
/// CorePluginInterface::create. It owns the managers below; they live until it is destroyed, which is
/// after every plug-in's objects. All operations belong to the GUI thread unless they say otherwise.
class HALVORA_CORE_EXPORT Core : public QObject {
    Q_OBJECT
public:
    /// Settings and data live in @p profile when it is given, otherwise in the XDG folders of the user.
    explicit Core(const QString &profile = QString(), QObject *parent = nullptr);
    ~Core() override;

    PlatformManager *platform() const;
    StorageManager *storage() const;
    LocaleManager *locale() const;
    PluginManager *plugin() const;
    PrivateDataRegistry *privateData() const;
    SettingsRegistry *settingsRegistry() const;
    /// The program's settings file.
    QSettings &settings() const;
    /// Counts bytes on any thread.
    TrafficMeter &traffic() const;
    LinkOpener &links() const;

    /// The name under which the provider that is being created keeps its files and settings; the application
    /// sets it to the plug-in's own name before CorePluginInterface::create.
    QString providerName() const;
    void setProviderName(const QString &name);

    /// Replaces the platform manager, for a host that registers elsewhere. Before any plug-in is created.
    void setPlatform(std::unique_ptr<PlatformManager> platform);

    /// The style of the system, in which the program shows itself. Owned by the application.
    QStyle *systemStyle() const;

    /// The main window, or null before the application made it and after it is gone. Not owned.
    MainWindow *mainWindow() const;
    void setMainWindow(MainWindow *window);

    /// The link known under @p key, a null one for an unknown key.
    UrlInfo url(const QString &key) const;
    void setUrls(const QHash<QString, UrlInfo> &urls);

    /// Tells of a newer version: copies what it needs from @p element and returns at once. Of a text the
    /// first 2,000 characters are taken, an address of more than 2,048 is none.
    void performOnlineUpdate(const QDomElement &element);

    /// Whether the help menu offers to save a report.
    bool isErrorReportVisible() const;
    void setErrorReportVisible(bool visible);

    /// False once shutdown has begun. Any thread.
    bool isRunning() const noexcept { return m_running.load(std::memory_order_acquire); }
    void stopRunning() noexcept { m_running.store(false, std::memory_order_release); }

    /// The last line that a news server said while credentials were tested, for the person who has to
    /// mend them; empty when none was said. Any thread.
    QString newsServerReply() const;
    void setNewsServerReply(const QString &line);

    /// A PEM file of authorities: the only ones for the account service, and trusted besides the system's at
    /// news servers. Empty for none. Any thread.
    QString authorityFile() const;
    void setAuthorityFile(const QString &file);

Q_SIGNALS:
    void urlsChanged();
    void softwareUpdateOffered(const SoftwareUpdate &update);
    void errorReportVisibleChanged(bool visible);

private:
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<TrafficMeter> m_traffic;
    std::unique_ptr<PlatformManager> m_platform;
    std::unique_ptr<StorageManager> m_storage;
    std::unique_ptr<LocaleManager> m_locale;
    std::unique_ptr<PluginManager> m_plugin;
    std::unique_ptr<PrivateDataRegistry> m_privateData;
    std::unique_ptr<SettingsRegistry> m_settingsRegistry;
    std::unique_ptr<LinkOpener> m_links;
    QString m_providerName;
    QPointer<MainWindow> m_mainWindow;
    QHash<QString, UrlInfo> m_urls;
    bool m_errorReportVisible = false;
    std::atomic<bool> m_running{true};
    mutable std::mutex m_mutex; ///< guards the two texts below
    QString m_newsServerReply;
    QString m_authorityFile;
};
