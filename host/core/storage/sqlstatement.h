// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

class QString;

/// What a statement does to what is stored. Clear is a DELETE of every row of a table; Unknown is an empty
/// text, which QSqlQuery has of a statement that could not be prepared because the connection is closed.
enum class SqlStatement { Begin, Commit, Read, Insert, Update, Delete, Clear, Other, Unknown };

namespace sqlstatement {

SqlStatement kindOf(const QString &text);

} // namespace sqlstatement
