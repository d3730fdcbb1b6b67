// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "newsgroupdrag.h"

#include <QDataStream>
#include <QMimeData>

QString newsgroupdrag::mimeType()
{
    return QStringLiteral("application/x-halvora.plain.newsgroup");
}

// One name behind the other until the end: a count before them would be taken for a name.
QMimeData *newsgroupdrag::mimeData(const QStringList &names)
{
    if (names.isEmpty())
        return nullptr;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (const QString &name : names)
        stream << name;
    auto *data = new QMimeData;
    data->setData(mimeType(), bytes);
    data->setText(names.join(QLatin1Char('\n')));
    return data;
}
