// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Makes what a service wrote fit for the desktop's notifications.
namespace NotificationText {

/// @p text on one line of at most @p most UTF-16 units, the last of them an ellipsis where it was cut.
QString plainLine(const QString &text, int most);
/// @p line so that a desktop that reads markup shows the very same line.
QString escaped(const QString &line);

} // namespace NotificationText
