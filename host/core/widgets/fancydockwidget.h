// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QDockWidget>

/// A panel of the main window whose title bar has the colour of StyleHelper. The bar shows windowTitle() and,
/// as features() allow, a button that lets the panel float and one that closes it; it follows both.
class HALVORA_CORE_EXPORT FancyDockWidget : public QDockWidget {
    Q_OBJECT
public:
    explicit FancyDockWidget(QWidget *parent = nullptr);
    ~FancyDockWidget() override;
    Q_DISABLE_COPY(FancyDockWidget)

protected:
    /// Panels that show texts translate them here and pass the event on.
    void changeEvent(QEvent *event) override;
};
