// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/extendedtreeview.h>

/// The tree of the bookmarks panel. A right click leaves current item and selection as they are, and the menu
/// is always asked for, by customContextMenuRequested, at the mouse pointer.
class BookmarkTreeView final : public ExtendedTreeView {
    Q_OBJECT
public:
    explicit BookmarkTreeView(QWidget *parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
};
