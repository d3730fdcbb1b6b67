// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bookmarks/bookmarkpayload.h"

class QByteArray;

/// The reader of drags as the format tells it, which believes every count and goes down with every level.
namespace literalpayload {

/// The first of the announced records, as many as a small payload can hold and a few more. @p bytes are less
/// than 10,000.
QVector<BookmarkRecord> read(const QByteArray &bytes);

QStringList readNewsgroups(const QByteArray &bytes);

/// Whether all fields are equal, and the names both null or both not.
bool isSame(const BookmarkRecord &one, const BookmarkRecord &other);

} // namespace literalpayload
