// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The text of an article's header fields, which anybody may have written. Never fails. Any thread.
namespace headertext {

constexpr int longest = 500; ///< characters; what is longer is cut off

/// A field as a person reads it, on one line: encoded words (RFC 2047) are decoded, malformed ones and those
/// in an unknown character set stay as they are.
QString decode(const QByteArray &field);

/// The name in a From field, or the address where there is none.
QString poster(const QByteArray &from);

} // namespace headertext
