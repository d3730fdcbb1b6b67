// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/bookmarkpayload.h"

#include "bookmarks/bookmarkitem.h"

#include <QDataStream>

#include <vector>

namespace {

constexpr qint32 recordMark = -1599029040; // 0xA0B0C0D0; written, and not compared by any reader

/// A record and the number of records nested in it.
qint32 readRecord(QDataStream &stream, BookmarkRecord &record)
{
    qint32 mark = 0;
    qint32 children = 0;
    stream >> mark >> record.kind >> record.id >> record.parentId >> record.name >> children;
    return children;
}

// Each record takes at least a byte away, so whatever the counts say, the end of the data is the end.
void skipRecords(QDataStream &stream, qint32 count)
{
    std::vector<qint32> left{count};
    BookmarkRecord skipped;
    while (!left.empty() && !stream.atEnd()) {
        if (left.back() <= 0) {
            left.pop_back();
            continue;
        }
        --left.back();
        left.push_back(readRecord(stream, skipped));
    }
}

} // namespace

QByteArray bookmarkpayload::write(const QList<BookmarkItem *> &items)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qint32(items.size());
    std::vector<const BookmarkItem *> waiting(items.crbegin(), items.crend());
    while (!waiting.empty()) {
        const BookmarkItem *item = waiting.back();
        waiting.pop_back();
        const QList<BookmarkItem *> &children = item->children();
        stream << recordMark << qint32(item->kind()) << item->id() << item->parentId() << item->name()
               << qint32(children.size());
        waiting.insert(waiting.end(), children.crbegin(), children.crend());
    }
    return bytes;
}

QVector<BookmarkRecord> bookmarkpayload::read(const QByteArray &bytes)
{
    QVector<BookmarkRecord> records;
    QDataStream stream(bytes);
    qint32 count = 0;
    stream >> count;
    for (qint32 i = 0; i < count; ++i) {
        const bool isBehindTheEnd = stream.atEnd();
        BookmarkRecord record;
        const qint32 children = readRecord(stream, record);
        records.append(record);
        if (isBehindTheEnd)
            break;
        skipRecords(stream, children);
    }
    return records;
}

QStringList bookmarkpayload::readNewsgroups(const QByteArray &bytes)
{
    QStringList names;
    QDataStream stream(bytes);
    while (!stream.atEnd()) {
        QString name;
        stream >> name;
        names.append(name);
    }
    return names;
}
