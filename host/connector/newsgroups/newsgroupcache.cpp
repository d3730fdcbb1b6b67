// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "newsgroupcache.h"

#include "newsgrouptablebuilder.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QFileInfo>
#include <QSaveFile>

#include <cstring>

namespace {

constexpr quint32 mark = 0x484E474C; // "HNGL"
constexpr quint32 version = 2;
constexpr qint64 mostBytes = qint64(512) * 1024 * 1024;
constexpr qint64 latestTime = 253402300799999; // the end of the year 9999, in milliseconds

QByteArray checksum(const QByteArray &origin, const QByteArray &text)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(origin);
    hash.addData(text);
    return hash.result();
}

// The lines are looked at as those of a server: the file may have been written by anybody.
NewsgroupTable tableOf(const QByteArray &text)
{
    NewsgroupTableBuilder builder;
    const char *line = text.constData();
    const char *end = line + text.size();
    while (line < end) {
        const auto *lineEnd = static_cast<const char *>(std::memchr(line, '\n', std::size_t(end - line)));
        const int size = int((lineEnd ? lineEnd : end) - line);
        builder.addGroup(line, size);
        builder.addDescription(line, size);
        line += size + 1;
    }
    return builder.take();
}

} // namespace

newsgroupcache::Contents newsgroupcache::read(const QString &file)
{
    const QFileInfo info(file);
    QFile source(file);
    // Opening a pipe would wait for its other end.
    if (!info.isFile() || info.size() > mostBytes || !source.open(QIODevice::ReadOnly))
        return {};
    QDataStream stream(&source);
    stream.setVersion(QDataStream::Qt_5_12);
    quint32 foundMark = 0;
    quint32 foundVersion = 0;
    QByteArray
        origin; // time, server and user, with a blank between them; only the user may have more of them
    QByteArray sum;
    stream >> foundMark >> foundVersion;
    if (foundMark != mark || foundVersion != version)
        return {};
    stream >> origin >> sum;
    const QByteArray text = source.readAll();
    const int blank = origin.indexOf(' ');
    const int second = origin.indexOf(' ', blank + 1);
    const qint64 fetched = origin.left(blank).toLongLong();
    if (stream.status() != QDataStream::Ok || second < 0 || sum != checksum(origin, text) || fetched < 1 ||
        fetched > latestTime)
        return {};
    const QString server = QString::fromUtf8(origin.mid(blank + 1, second - blank - 1));
    const QString user = QString::fromUtf8(origin.mid(second + 1));
    return {tableOf(text), QDateTime::fromMSecsSinceEpoch(fetched, Qt::UTC), server, user};
}

bool newsgroupcache::write(const QString &file, const Contents &contents)
{
    const QFileInfo info(file);
    if (info.exists() && !info.isFile())
        return false;
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly))
        return false;
    const QByteArray time = QByteArray::number(contents.fetched.toMSecsSinceEpoch());
    const QByteArray origin = time + ' ' + contents.server.toUtf8() + ' ' + contents.user.toUtf8();
    const QByteArray text = contents.table.text();
    QDataStream stream(&target);
    stream.setVersion(QDataStream::Qt_5_12);
    stream << mark << version << origin << checksum(origin, text);
    target.write(text);
    return target.commit();
}
