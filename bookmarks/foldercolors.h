// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QIcon>

class BookmarkItem;

// The colours of bookmarks and folders, which are stored by their names. GUI thread.

/// What the colour called @p name is painted in: yellow for every name that is not known, or for none.
QColor colorForName(const QString &name);
QColor colorForName(const BookmarkItem *item);

/// A square of @p color with round corners for an entry of a menu.
QIcon colorSwatchIcon(const QColor &color);
