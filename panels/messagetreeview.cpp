// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "panels/messagetreeview.h"

#include <halvora/core.h>

MessageTreeView::MessageTreeView(Core *core, QWidget *parent)
    : ExtendedTreeView(parent)
{
    setStyle(core->systemStyle());
    setFrameShape(QFrame::NoFrame);
    setHeaderHidden(true);
    setIndentation(0);
    setAlternatingRowColors(true);
    setUniformRowHeights(true);
    // Not every style asks for it, and without it the cross under the pointer would not be painted anew.
    viewport()->setAttribute(Qt::WA_Hover);
}
