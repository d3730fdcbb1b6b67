// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/trafficjournal.h>

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <limits>

namespace {

constexpr qint64 MaximumEntry = qint64(1) << 60;
constexpr qint64 MaximumTime = 253402300799999; // the end of the year 9999
constexpr qint64 MaximumFileSize = qint64(64) * 1024 * 1024;
constexpr int MaximumLineLength = 64;
constexpr int DaysInDetail = 62;
constexpr int DaysBySecond = 2;
constexpr qint64 CoarseStep = qint64(5) * 60 * 1000;

qint64 saturatedSum(qint64 a, qint64 b, qint64 maximum)
{
    return a > maximum - b ? maximum : a + b;
}

bool earlier(const TrafficJournal::Entry &a, const TrafficJournal::Entry &b)
{
    return a.time < b.time;
}

bool isBefore(const TrafficJournal::Entry &entry, qint64 time)
{
    return entry.time < time;
}

qint64 startOf(const QDate &day)
{
    return day.startOfDay().toMSecsSinceEpoch();
}

/// The number that @p text is, -1 for anything but digits.
qint64 number(const QByteArray &text)
{
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    bool ok = std::all_of(text.begin(), text.end(), isDigit);
    const qint64 value = ok ? text.toLongLong(&ok) : -1;
    return ok ? value : -1;
}

bool parse(const QByteArray &line, TrafficJournal::Entry *entry)
{
    const int space = line.indexOf(' ');
    if (space < 1 || !line.endsWith('\n'))
        return false;
    entry->time = number(line.left(space));
    entry->bytes = number(line.mid(space + 1, line.size() - space - 2));
    return entry->time > 0 && entry->time <= MaximumTime && entry->bytes > 0 && entry->bytes <= MaximumEntry;
}

QByteArray lines(const QVector<TrafficJournal::Entry> &entries)
{
    QByteArray text;
    for (const TrafficJournal::Entry &entry : entries)
        text += QByteArray::number(entry.time) + ' ' + QByteArray::number(entry.bytes) + '\n';
    return text;
}

/// The time under which entries as old as the one at @p time are kept together.
qint64 mergedTime(qint64 time, qint64 byDayBefore, qint64 coarseBefore)
{
    if (time < byDayBefore) {
        // Noon is still on the same day after a journey to another time zone.
        const QDate day = QDateTime::fromMSecsSinceEpoch(time).date();
        return QDateTime(day, QTime(12, 0)).toMSecsSinceEpoch();
    }
    // Local days begin at multiples of a quarter of an hour, so no step lies in two of them.
    return time < coarseBefore ? time - time % CoarseStep : time;
}

} // namespace

TrafficJournal::TrafficJournal(const QString &file, const Clock &nowMs)
    : m_file(file)
{
    setClock(nowMs);
    load();
}

TrafficJournal::~TrafficJournal()
{
    flush();
}

void TrafficJournal::setClock(const Clock &nowMs)
{
    m_nowMs = nowMs ? nowMs : Clock(&QDateTime::currentMSecsSinceEpoch);
}

QDate TrafficJournal::today() const
{
    return QDateTime::fromMSecsSinceEpoch(m_nowMs()).date();
}

void TrafficJournal::add(qint64 bytes)
{
    if (bytes < 1)
        return;
    const Entry entry{qBound(qint64(1), m_nowMs(), MaximumTime), std::min(bytes, MaximumEntry)};
    insert(entry);
    m_unwritten.append(entry);
}

bool TrafficJournal::flush()
{
    if (m_unwritten.isEmpty())
        return true;
    const QFileInfo info(m_file);
    if (info.exists() && !info.isFile())
        return false; // opening a pipe would wait for its other end
    QFile file(m_file);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        return false;
    const qint64 size = file.size();
    const QByteArray text = (m_lineIsOpen ? QByteArray("\n") : QByteArray()) + lines(m_unwritten);
    if (file.write(text) != text.size()) {
        file.resize(size); // half of it now and all of it later would count twice
        return false;
    }
    m_lineIsOpen = false;
    m_unwritten.clear();
    return true;
}

void TrafficJournal::clear()
{
    m_entries.clear();
    m_unwritten.clear();
    m_lineIsOpen = false;
    if (QFileInfo(m_file).isFile())
        QFile::remove(m_file);
}

qint64 TrafficJournal::bytesSince(qint64 time) const
{
    return time >= MaximumTime ? 0 : sum(std::max(time, qint64(0)) + 1, MaximumTime + 1);
}

qint64 TrafficJournal::bytesBetween(const QDate &first, const QDate &last) const
{
    return sum(startOf(first), startOf(last.addDays(1)));
}

qint64 TrafficJournal::totalBytes() const
{
    return sum(0, MaximumTime + 1);
}

QVector<TrafficJournal::Period> TrafficJournal::lastDays(int count) const
{
    QVector<Period> periods;
    const QDate present = today();
    for (int back = count - 1; back >= 0; --back) {
        const QDate day = present.addDays(-back);
        periods.append({day, bytesBetween(day, day)});
    }
    return periods;
}

QVector<TrafficJournal::Period> TrafficJournal::lastMonths(int count) const
{
    QVector<Period> periods;
    const QDate present = today();
    for (int back = count - 1; back >= 0; --back) {
        const QDate first = QDate(present.year(), present.month(), 1).addMonths(-back);
        periods.append({first, bytesBetween(first, first.addMonths(1).addDays(-1))});
    }
    return periods;
}

void TrafficJournal::load()
{
    QFile file(m_file);
    if (!QFileInfo(m_file).isFile() || !file.open(QIODevice::ReadOnly))
        return;
    // A sound journal never gets that long; of one that did, the latest entries matter.
    if (file.size() > MaximumFileSize)
        file.seek(file.size() - MaximumFileSize);
    QByteArray line;
    bool continues = false;
    while (!(line = file.readLine(MaximumLineLength)).isEmpty()) {
        Entry entry{};
        if (!continues && parse(line, &entry))
            m_entries.append(entry);
        continues = !line.endsWith('\n');
    }
    m_lineIsOpen = continues;
    std::stable_sort(m_entries.begin(), m_entries.end(), earlier);
    if (file.error() == QFileDevice::NoError)
        compact();
}

void TrafficJournal::compact()
{
    const QDate present = today();
    const qint64 byDayBefore = startOf(present.addDays(-DaysInDetail));
    const qint64 coarseBefore = startOf(present.addDays(-DaysBySecond));
    QVector<Entry> merged;
    for (const Entry &entry : qAsConst(m_entries)) {
        const qint64 time = mergedTime(entry.time, byDayBefore, coarseBefore);
        if (time < coarseBefore && !merged.isEmpty() && merged.constLast().time == time)
            merged.last().bytes = saturatedSum(merged.constLast().bytes, entry.bytes, MaximumEntry);
        else
            merged.append({time, entry.bytes});
    }
    if (merged.size() == m_entries.size())
        return;
    m_entries = merged;
    QSaveFile file(m_file);
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.write(lines(m_entries));
    if (file.commit())
        m_lineIsOpen = false;
}

void TrafficJournal::insert(const Entry &entry)
{
    // A clock that was set back must not break the order that sum() searches by.
    m_entries.insert(std::upper_bound(m_entries.begin(), m_entries.end(), entry, earlier), entry);
}

qint64 TrafficJournal::sum(qint64 from, qint64 to) const
{
    qint64 bytes = 0;
    auto entry = std::lower_bound(m_entries.cbegin(), m_entries.cend(), from, isBefore);
    for (; entry != m_entries.cend() && entry->time < to; ++entry)
        bytes = saturatedSum(bytes, entry->bytes, std::numeric_limits<qint64>::max());
    return bytes;
}
