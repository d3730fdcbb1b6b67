// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QColor>

/// The colours of the program's own widgets. GUI thread.
class HALVORA_CORE_EXPORT StyleHelper {
public:
    StyleHelper() = delete;

    /// The colour behind the titles of the panels. An invalid one goes back to the program's own; what is on
    /// the screen follows at once.
    static void setBaseColor(const QColor &color);
    static QColor baseColor();

    /// Text and symbols on the base colour.
    static QColor titleColor();
    /// The line that ends a title bar and the frame of its buttons: a shade of the base colour.
    static QColor edgeColor();
    /// Behind a button of a title bar that the pointer is on, or that is held down.
    static QColor buttonColor(bool pressed);

    /// Black or white, whichever is easier to read on @p background (WCAG 2.1, relative luminance).
    static QColor readableOn(const QColor &background);
    /// The contrast ratio of two opaque colours, from 1 to 21 (WCAG 2.1).
    static qreal contrast(const QColor &one, const QColor &other);
};
