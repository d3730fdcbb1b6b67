// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "newsgrouptable.h"

#include <QDateTime>
#include <QString>

/// The file that keeps the list of newsgroups from one run of the program to the next. It holds nothing that
/// the server would not tell again, so whatever is wrong with it costs one more download. Any thread; both
/// operations take as long as the disk.
namespace newsgroupcache {

struct Contents {
    NewsgroupTable table;
    QDateTime fetched; ///< when the server gave the list, UTC; not valid when there is no list
    QString server;    ///< the name of the account's first news server
    QString user;      ///< the account's user name
};

/// What @p file holds; no list when it is not there, was damaged or was written by another version.
Contents read(const QString &file);
/// Replaces @p file in one step. False, and the file is as it was, when it can not be written.
bool write(const QString &file, const Contents &contents);

} // namespace newsgroupcache
