// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/core.h>

#include <halvora/configuration.h>
#include <halvora/linkopener.h>
#include <halvora/localemanager.h>
#include <halvora/mainwindow.h>
#include <halvora/platformmanager.h>
#include <halvora/pluginmanager.h>
#include <halvora/privatedataregistry.h>
#include <halvora/settingsregistry.h>
#include <halvora/storagemanager.h>
#include <halvora/trafficmeter.h>

#include <QApplication>
#include <QDir>
#include <QDomElement>
#include <QSettings>

namespace {

constexpr int maxUpdateUrlLength = 2'048; // characters
constexpr int maxUpdateTextLength = 2'000;

std::unique_ptr<QSettings> openSettings(const QString &profile)
{
    if (profile.isEmpty())
        return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                           Configuration::settingsOrganization(),
                                           Configuration::settingsApplication());
    return std::make_unique<QSettings>(QDir(profile).filePath(QStringLiteral("halvora.ini")),
                                       QSettings::IniFormat);
}

} // namespace

Core::Core(const QString &profile, QObject *parent)
    : QObject(parent)
    , m_settings(openSettings(profile))
    , m_traffic(std::make_unique<TrafficMeter>())
    , m_platform(std::make_unique<PlatformManager>())
    , m_storage(std::make_unique<StorageManager>(profile))
    , m_locale(std::make_unique<LocaleManager>(*m_settings))
    , m_plugin(std::make_unique<PluginManager>())
    , m_privateData(std::make_unique<PrivateDataRegistry>())
    , m_settingsRegistry(std::make_unique<SettingsRegistry>())
    , m_links(std::make_unique<LinkOpener>())
    , m_providerName(QStringLiteral("provider"))
{
}

Core::~Core() = default;

PlatformManager *Core::platform() const
{
    return m_platform.get();
}

StorageManager *Core::storage() const
{
    return m_storage.get();
}

LocaleManager *Core::locale() const
{
    return m_locale.get();
}

PluginManager *Core::plugin() const
{
    return m_plugin.get();
}

PrivateDataRegistry *Core::privateData() const
{
    return m_privateData.get();
}

SettingsRegistry *Core::settingsRegistry() const
{
    return m_settingsRegistry.get();
}

QSettings &Core::settings() const
{
    return *m_settings;
}

TrafficMeter &Core::traffic() const
{
    return *m_traffic;
}

LinkOpener &Core::links() const
{
    return *m_links;
}

QString Core::providerName() const
{
    return m_providerName;
}

void Core::setProviderName(const QString &name)
{
    m_providerName = name;
}

void Core::setPlatform(std::unique_ptr<PlatformManager> platform)
{
    m_platform = std::move(platform);
}

QStyle *Core::systemStyle() const
{
    return QApplication::style();
}

MainWindow *Core::mainWindow() const
{
    return m_mainWindow;
}

void Core::setMainWindow(MainWindow *window)
{
    m_mainWindow = window;
}

UrlInfo Core::url(const QString &key) const
{
    return m_urls.value(key);
}

void Core::setUrls(const QHash<QString, UrlInfo> &urls)
{
    m_urls = urls;
    Q_EMIT urlsChanged();
}

void Core::performOnlineUpdate(const QDomElement &element)
{
    const QString url = element.attribute(QStringLiteral("url"));
    Q_EMIT softwareUpdateOffered({element.attribute(QStringLiteral("version")).left(maxUpdateTextLength),
                                  url.size() <= maxUpdateUrlLength ? url : QString(),
                                  element.text().left(maxUpdateTextLength)});
}

bool Core::isErrorReportVisible() const
{
    return m_errorReportVisible;
}

void Core::setErrorReportVisible(bool visible)
{
    if (visible == m_errorReportVisible)
        return;
    m_errorReportVisible = visible;
    Q_EMIT errorReportVisibleChanged(visible);
}

QString Core::newsServerReply() const
{
    const std::lock_guard lock(m_mutex);
    return m_newsServerReply;
}

void Core::setNewsServerReply(const QString &line)
{
    const std::lock_guard lock(m_mutex);
    m_newsServerReply = line;
}

QString Core::authorityFile() const
{
    const std::lock_guard lock(m_mutex);
    return m_authorityFile;
}

void Core::setAuthorityFile(const QString &file)
{
    const std::lock_guard lock(m_mutex);
    m_authorityFile = file;
}
