// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/fancydockwidget.h>

class CVBookmarkManager;
class CVConnectorPlugin;
class MainWindow;

/// The panel "Bookmarks". GUI thread.
class CVBookmarksToolWidget final : public FancyDockWidget {
    Q_OBJECT
public:
    /// @p model and @p plugin outlive the panel.
    CVBookmarksToolWidget(CVBookmarkManager *model, CVConnectorPlugin *plugin, MainWindow *parent);

protected:
    void changeEvent(QEvent *event) override;
};
