// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "literalpayload.h"

#include <QDataStream>

namespace {

constexpr qint32 mostRecords = 400; // 32 bytes is the least that a record takes

// Records that are nested are not kept, so those behind the end need not be counted out.
BookmarkRecord readRecord(QDataStream &stream)
{
    BookmarkRecord record;
    qint32 mark = 0;
    qint32 children = 0;
    stream >> mark;
    stream >> record.kind;
    stream >> record.id;
    stream >> record.parentId;
    stream >> record.name;
    stream >> children;
    for (qint32 i = 0; i < children && !stream.atEnd(); ++i)
        readRecord(stream);
    return record;
}

} // namespace

QVector<BookmarkRecord> literalpayload::read(const QByteArray &bytes)
{
    QDataStream stream(bytes);
    qint32 count = 0;
    stream >> count;
    QVector<BookmarkRecord> records;
    for (qint32 i = 0; i < qMin(count, mostRecords); ++i)
        records.append(readRecord(stream));
    return records;
}

QStringList literalpayload::readNewsgroups(const QByteArray &bytes)
{
    QDataStream stream(bytes);
    QStringList names;
    while (!stream.atEnd()) {
        QString name;
        stream >> name;
        names.append(name);
    }
    return names;
}

bool literalpayload::isSame(const BookmarkRecord &one, const BookmarkRecord &other)
{
    return one.kind == other.kind && one.id == other.id && one.parentId == other.parentId &&
           one.name == other.name && one.name.isNull() == other.name.isNull();
}
