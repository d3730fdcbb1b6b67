// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class BookmarkStore;

/// Collects what Qt says about connections that are removed while they are used, or opened twice, as long as
/// it lives. One at a time.
class ConnectionWarnings {
public:
    ConnectionWarnings();
    ~ConnectionWarnings();
    Q_DISABLE_COPY(ConnectionWarnings)

    QString text() const;
};

namespace storecheck {

/// One line for each item, "[name]" for a folder, with a blank before it for each level; then its colour, and
/// "+" for expanded. Stops at some depth, because a hostile file may have a tree without an end.
QStringList shown(BookmarkStore &store);

/// The first value that @p statement selects from the file, as text; what went wrong where there is none.
QString value(const QString &path, const char *statement);

/// Whether what is written to the file at @p path can be read again.
bool isSound(const QString &path);

/// Opens @p store and uses it as a user does, watched by a model tester, then closes it and opens it again. A
/// sound file gives back what was shown. To be followed by a look at QTest::currentTestFailed().
void useAndReopen(BookmarkStore &store);

} // namespace storecheck
