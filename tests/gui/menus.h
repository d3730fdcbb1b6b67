// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "person.h"

class QMenu;

/// The menus that are open, by the texts of their entries as they are seen. All but entry() on the GUI
/// thread.
namespace menus {

/// The menu in front if it has an entry of this text, or null.
QMenu *front(const QString &text);
/// The texts of the entries of the menu in front, empty ones for separators.
QStringList texts();
/// The text of the entry that the arrow keys are at; empty for none.
QString current(const QMenu *menu);
/// An entry of any menu that is open.
Spot entry(const QString &text);

} // namespace menus
