// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QVector>

class BookmarkItem;
class QByteArray;

/// What a drag says of one bookmark or folder.
struct BookmarkRecord {
    qint32 kind; ///< a BookmarkKind, or anything else that a foreign program wrote
    qint64 id;
    qint64 parentId;
    QString name;
};

/// The bytes of a drag. They may come from any program: reading takes time and memory by their length, not by
/// what they claim to hold, and never fails.
namespace bookmarkpayload {

/// @p items, each with the part of its tree that is in memory.
QByteArray write(const QList<BookmarkItem *> &items);

/// The records at the top, without those nested in them. Behind the end of the data all records are the same
/// default one, so one stands for as many as are announced.
QVector<BookmarkRecord> read(const QByteArray &bytes);

/// Newsgroup names, one after the other until the end.
QStringList readNewsgroups(const QByteArray &bytes);

} // namespace bookmarkpayload
