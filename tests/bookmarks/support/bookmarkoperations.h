// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

#include <utility>

class BookmarkStore;

/// Something that a user, a view or the program does to a store. It begins with a bookmark and an inner
/// folder in the first of several folders, and comes to no harm where there is less.
using BookmarkOperation = void (*)(BookmarkStore &);

/// Everything that can be done to bookmarks, each with its name.
const QVector<std::pair<const char *, BookmarkOperation>> &bookmarkOperations();
