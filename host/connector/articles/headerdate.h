// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

class QByteArray;
class QDateTime;

/// The date of an article's header.
namespace headerdate {

/// @p field as in RFC 5322 section 3.3, also as older programs wrote it: the name of the day may be missing,
/// the zone may be a name or missing, which is UTC, comments may stand behind it. UTC; not valid when it is
/// no date. Any thread.
QDateTime parse(const QByteArray &field);

} // namespace headerdate
