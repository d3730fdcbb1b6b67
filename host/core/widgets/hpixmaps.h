// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QPixmap>

class QSize;
class QString;

// Pictures from files and resources. GUI thread, and only after the application object was made. Sizes are in
// device-independent pixels; a picture that cannot be read, or a size that is empty, gives a null pixmap.

/// The drawing at @p path in a square of @p size, rendered for the sharpest screen there is.
HALVORA_CORE_EXPORT QPixmap hSvgPixmap(const QString &path, int size);
/// The drawing at @p path, centred in @p size with its own proportions.
HALVORA_CORE_EXPORT QPixmap hSvgPixmap(const QString &path, const QSize &size);
/// The same, or without its colours, for something that is not in use at present.
HALVORA_CORE_EXPORT QPixmap hSvgPixmapExt(const QString &path, int width, int height, bool coloured);

/// The picture whose file name is @p pattern with each %1 replaced by @p number. When @p retina is set, a
/// screen has more than one pixel a point and the file for twice the number exists, that one is taken, with a
/// device pixel ratio of 2.
HALVORA_CORE_EXPORT QPixmap hRetinaPixmap3(const QString &pattern, int number, bool retina);

/// The height that a panel at the window's lower edge starts with.
HALVORA_CORE_EXPORT int hDockWidgetHeight();
/// The width that a panel at the window's side starts with.
HALVORA_CORE_EXPORT int hSidebarWidth();
