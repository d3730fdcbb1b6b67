// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/nzbfile.h>

#include <QSet>

#include <algorithm>

QString NzbFile::title() const
{
    const QString title = meta.value(QStringLiteral("title"));
    return title.isEmpty() ? meta.value(QStringLiteral("name")) : title;
}

NzbFile::Totals NzbFile::totals() const
{
    Totals totals;
    QSet<QString> known;
    for (const NzbEntry &entry : entries) {
        totals.segments += entry.segments;
        totals.bytes += entry.bytes;
        totals.hasAllSizes = totals.hasAllSizes && entry.hasAllSizes;
        if (entry.posted != NzbEntry::noDate) {
            const bool isFirst = totals.firstPosted == NzbEntry::noDate;
            totals.firstPosted = isFirst ? entry.posted : std::min(totals.firstPosted, entry.posted);
            totals.lastPosted = std::max(totals.lastPosted, entry.posted);
        }
        for (const QString &newsgroup : entry.newsgroups) {
            if (known.contains(newsgroup))
                continue;
            known.insert(newsgroup);
            totals.newsgroups.append(newsgroup);
        }
    }
    return totals;
}
