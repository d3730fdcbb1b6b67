// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// What XML 1.0 can carry as text or as the value of an attribute. Any thread.
namespace xmltext {

/// False when @p text holds a control character other than tab, line feed and carriage return, half of a
/// surrogate pair, U+FFFE or U+FFFF.
bool canCarry(const QString &text);

} // namespace xmltext
