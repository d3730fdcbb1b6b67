// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QWidget;

/// What a person reads in a window, its menus included.
namespace WindowTexts {

/// Every text that is shown or told, sorted, each once; not what a person has typed.
QStringList all(const QWidget &window);
/// The texts that have less room than they need.
QStringList cutOff(const QWidget &window);
/// The texts that share the key of their mnemonic with another one of the same menu or dialog.
QStringList sharedMnemonics(const QWidget &window);

} // namespace WindowTexts
