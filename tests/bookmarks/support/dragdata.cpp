// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "dragdata.h"

#include <QDataStream>
#include <QMimeData>

std::unique_ptr<QMimeData> dragdata::newsgroups(const QStringList &names)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (const QString &name : names)
        stream << name;
    auto data = std::make_unique<QMimeData>();
    data->setData(QStringLiteral("application/x-halvora.plain.newsgroup"), bytes);
    return data;
}

std::unique_ptr<QMimeData> dragdata::record(qint32 mark, qint64 id, qint64 parentId, const QString &name)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qint32(1) << mark << qint32(0) << id << parentId << name << qint32(0);
    auto data = std::make_unique<QMimeData>();
    data->setData(QStringLiteral("application/x-corvia.bookmark"), bytes);
    return data;
}
