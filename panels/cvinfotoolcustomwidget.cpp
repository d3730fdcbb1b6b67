// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "panels/cvinfotoolcustomwidget.h"

#include <halvora/hpixmaps.h>

CVInfoToolCustomWidget::CVInfoToolCustomWidget(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
}

QSize CVInfoToolCustomWidget::sizeHint() const
{
    return {150, hDockWidgetHeight()};
}
