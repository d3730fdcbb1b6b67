// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/fancydockwidget.h>

#include "docktitlebar.h"

FancyDockWidget::FancyDockWidget(QWidget *parent)
    : QDockWidget(parent)
{
    setTitleBarWidget(new DockTitleBar(this));
}

FancyDockWidget::~FancyDockWidget() = default;

void FancyDockWidget::changeEvent(QEvent *event)
{
    QDockWidget::changeEvent(event);
}
