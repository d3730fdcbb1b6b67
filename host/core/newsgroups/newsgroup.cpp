// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/newsgroup.h>

#include <QVector>

#include <algorithm>

Newsgroup::Newsgroup(QString name)
    : m_name(std::move(name))
{
}

bool Newsgroup::isBinary() const
{
    const QVector<QStringRef> components = m_name.splitRef(QLatin1Char('.'));
    return std::any_of(components.cbegin(), components.cend(), [](const QStringRef &component) {
        return component.compare(QLatin1String("binaries"), Qt::CaseInsensitive) == 0 ||
               component.compare(QLatin1String("binary"), Qt::CaseInsensitive) == 0;
    });
}
