// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "detailstexts.h"

#include <halvora/stringformat.h>

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>

namespace {

constexpr int longestName = 100;  // characters
constexpr int mostNewsgroups = 3; // that a summary names

QString day(qint64 posted)
{
    return QLocale().toString(QDateTime::fromSecsSinceEpoch(posted).date(), QLocale::ShortFormat);
}

} // namespace

QString DetailsTexts::fileName(const QString &path)
{
    const QString clean = QDir::cleanPath(path);
    QString name = QFileInfo(clean).fileName();
    if (name.isEmpty())
        name = clean;
    // A name may hold anything but a slash.
    std::replace_if(
        name.begin(), name.end(), [](QChar c) { return !c.isPrint() && !c.isSurrogate(); }, QLatin1Char(' '));
    name = name.simplified();
    if (name.size() <= longestName)
        return name;
    return name.left(longestName / 2) + QChar(0x2026) + name.right(longestName / 2);
}

QString DetailsTexts::size(qint64 bytes, bool hasAllSizes)
{
    if (bytes == 0 && !hasAllSizes)
        return {};
    const QString size =
        StringFormat::byteCount(bytes, StringFormat::ByteFormatDefault, StringFormat::BinaryNotation, -1);
    return hasAllSizes ? size : tr("at least %1", "a size").arg(size);
}

QString DetailsTexts::date(qint64 posted)
{
    return posted == NzbEntry::noDate
               ? QString()
               : StringFormat::dateTime(QDateTime::fromSecsSinceEpoch(posted), StringFormat::ShortDateTime);
}

QString DetailsTexts::span(const NzbFile::Totals &totals)
{
    const QString first = day(totals.firstPosted);
    const QString last = day(totals.lastPosted);
    return first == last ? first : tr("%1 – %2", "from one day to another").arg(first, last);
}

QString DetailsTexts::newsgroups(const QStringList &names)
{
    const QString some = names.mid(0, mostNewsgroups).join(QLatin1String(", "));
    const int others = names.size() - mostNewsgroups;
    return others > 0 ? tr("%1 and %2 more", "newsgroups").arg(some, QLocale().toString(others)) : some;
}

QString DetailsTexts::summary(int files, const NzbFile::Totals &totals)
{
    const QLocale locale;
    QStringList parts{tr("Files: %1").arg(locale.toString(files)),
                      tr("Segments: %1").arg(locale.toString(totals.segments))};
    const QString bytes = size(totals.bytes, totals.hasAllSizes);
    if (!bytes.isEmpty())
        parts.append(tr("Size: %1").arg(bytes));
    if (totals.firstPosted != NzbEntry::noDate)
        parts.append(tr("Posted: %1").arg(span(totals)));
    if (!totals.newsgroups.isEmpty())
        parts.append(tr("Newsgroups: %1").arg(newsgroups(totals.newsgroups)));
    return parts.join(QStringLiteral("  ·  "));
}
