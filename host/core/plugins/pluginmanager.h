// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>
#include <halvora/iplugin.h>

#include <QList>
#include <QPointer>

#include <memory>
#include <vector>

class BookmarkProvider;

/// What plug-ins offer to the program: sub-plugins, in the order of their registration, and the bookmarks.
/// GUI thread.
class HALVORA_CORE_EXPORT PluginManager {
public:
    PluginManager();
    ~PluginManager();
    Q_DISABLE_COPY(PluginManager)

    /// Takes @p plugin over; it is destroyed by clear() or with the manager, the last registered first.
    void registerPlugin(IPlugin *plugin);
    QList<IPlugin *> plugins() const;
    void clear();

    /// The bookmarks that the program asks; the one before is forgotten. Not owned.
    void setBookmarkProvider(BookmarkProvider *provider);
    /// Null when there is none or it is gone.
    BookmarkProvider *bookmarkProvider() const;

private:
    std::vector<std::unique_ptr<IPlugin>> m_plugins;
    QPointer<BookmarkProvider> m_bookmarkProvider;
};
