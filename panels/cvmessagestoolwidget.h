// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/fancydockwidget.h>

class Connector;
class MainWindow;

/// The panel "Messages": what the account service wrote to the user. GUI thread.
class CVMessagesToolWidget final : public FancyDockWidget {
    Q_OBJECT
public:
    /// @p connector outlives the panel.
    CVMessagesToolWidget(Connector *connector, MainWindow *parent);

protected:
    void changeEvent(QEvent *event) override;
};
