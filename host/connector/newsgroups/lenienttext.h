// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Text of strangers, who may send any bytes and any characters. Any thread.
namespace lenienttext {

/// @p bytes as UTF-8 or, when they are none, as Latin-1: there are no wrong bytes.
QString decode(const QByteArray &bytes);

/// @p text on one line: characters that control a device or turn the direction of the text around become
/// blanks, runs of blanks become one, and what is longer than @p longest characters is cut off.
QString oneLine(const QString &text, int longest);

} // namespace lenienttext
