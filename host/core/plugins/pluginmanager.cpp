// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/pluginmanager.h>

#include <halvora/bookmarkprovider.h>

PluginManager::PluginManager() = default;

PluginManager::~PluginManager()
{
    clear();
}

void PluginManager::registerPlugin(IPlugin *plugin)
{
    m_plugins.emplace_back(plugin);
}

QList<IPlugin *> PluginManager::plugins() const
{
    QList<IPlugin *> list;
    for (const auto &plugin : m_plugins)
        list.append(plugin.get());
    return list;
}

void PluginManager::clear()
{
    while (!m_plugins.empty())
        m_plugins.pop_back();
}

void PluginManager::setBookmarkProvider(BookmarkProvider *provider)
{
    m_bookmarkProvider = provider;
}

BookmarkProvider *PluginManager::bookmarkProvider() const
{
    return m_bookmarkProvider;
}
