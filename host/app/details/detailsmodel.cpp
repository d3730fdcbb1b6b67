// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "detailsmodel.h"

#include "detailstexts.h"

#include <halvora/stringformat.h>

#include <QCollator>
#include <QLocale>

#include <algorithm>
#include <numeric>
#include <tuple>
#include <vector>

namespace {

bool isNumeric(int column)
{
    return column == DetailsModel::SizeColumn || column == DetailsModel::SegmentsColumn;
}

// Sorts @p rows by their keys; in the other direction, too, what is equal stays as it was.
template <typename Keys> void sortBy(const Keys &keys, Qt::SortOrder order, QVector<int> &rows)
{
    std::stable_sort(rows.begin(), rows.end(), [&keys, order](int left, int right) {
        return order == Qt::AscendingOrder ? keys[std::size_t(left)] < keys[std::size_t(right)]
                                           : keys[std::size_t(right)] < keys[std::size_t(left)];
    });
}

std::tuple<qint64, bool> number(const NzbEntry &entry, int column)
{
    switch (column) {
    case DetailsModel::SizeColumn:
        return {entry.bytes, !entry.hasAllSizes};
    case DetailsModel::SegmentsColumn:
        return {entry.segments, false};
    default:
        return {entry.posted, false};
    }
}

} // namespace

DetailsModel::DetailsModel(QObject *parent)
    : QAbstractTableModel(parent)
{
}

void DetailsModel::setEntries(const QVector<NzbEntry> &entries)
{
    beginResetModel();
    m_entries = entries;
    m_order.resize(entries.size());
    std::iota(m_order.begin(), m_order.end(), 0);
    endResetModel();
}

void DetailsModel::retranslate()
{
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1), {Qt::DisplayRole});
}

int DetailsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_order.size();
}

int DetailsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant DetailsModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const NzbEntry &entry = m_entries.at(m_order.at(index.row()));
    switch (role) {
    case Qt::DisplayRole:
        return text(entry, index.column());
    case Qt::ToolTipRole:
        return toolTip(entry);
    case Qt::TextAlignmentRole:
        return int((isNumeric(index.column()) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    default:
        return {};
    }
}

QString DetailsModel::text(const NzbEntry &entry, int column)
{
    switch (column) {
    case SubjectColumn:
        return entry.subject.isEmpty() ? tr("(no subject)") : entry.subject;
    case SizeColumn:
        return DetailsTexts::size(entry.bytes, entry.hasAllSizes);
    case SegmentsColumn:
        return QLocale().toString(entry.segments);
    case NewsgroupsColumn: {
        QStringList names = entry.newsgroups;
        for (QString &name : names)
            name = StringFormat::tinyNewsgroupName(name);
        return names.join(QLatin1String(", "));
    }
    case PostedColumn:
        return DetailsTexts::date(entry.posted);
    default:
        return {};
    }
}

QString DetailsModel::toolTip(const NzbEntry &entry)
{
    QStringList lines{text(entry, SubjectColumn)};
    for (const QString &line : {entry.poster, text(entry, SizeColumn), text(entry, PostedColumn)}) {
        if (!line.isEmpty())
            lines.append(line);
    }
    return (lines + entry.newsgroups).join(QLatin1Char('\n'));
}

QVariant DetailsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole)
        return int((isNumeric(section) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (role != Qt::DisplayRole)
        return {};
    switch (section) {
    case SubjectColumn:
        return tr("Subject");
    case SizeColumn:
        return tr("Size");
    case SegmentsColumn:
        return tr("Segments");
    case NewsgroupsColumn:
        return tr("Newsgroups");
    case PostedColumn:
        return tr("Posted");
    default:
        return {};
    }
}

Qt::ItemFlags DetailsModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() ? flags | Qt::ItemNeverHasChildren : flags;
}

void DetailsModel::sort(int column, Qt::SortOrder order)
{
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QVector<int> before = m_order;
    m_order = sorted(column, order);
    keepPersistentIndexes(before);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

// Texts are compared by keys that are made once: to compare them as they are would take seconds where there
// are a hundred thousand.
QVector<int> DetailsModel::sorted(int column, Qt::SortOrder order) const
{
    QVector<int> rows(m_entries.size());
    std::iota(rows.begin(), rows.end(), 0);
    if (column == SubjectColumn || column == NewsgroupsColumn) {
        QCollator collator{QLocale()};
        collator.setNumericMode(true); // part 2 before part 10
        std::vector<QCollatorSortKey> keys;
        keys.reserve(std::size_t(m_entries.size()));
        for (const NzbEntry &entry : m_entries)
            keys.push_back(collator.sortKey(text(entry, column)));
        sortBy(keys, order, rows);
    } else if (column >= 0 && column < ColumnCount) {
        std::vector<std::tuple<qint64, bool>> keys;
        keys.reserve(std::size_t(m_entries.size()));
        for (const NzbEntry &entry : m_entries)
            keys.push_back(number(entry, column));
        sortBy(keys, order, rows);
    }
    return rows;
}

void DetailsModel::keepPersistentIndexes(const QVector<int> &before)
{
    const QModelIndexList old = persistentIndexList();
    if (old.isEmpty())
        return;
    QVector<int> rowOf(m_order.size());
    for (int row = 0; row < m_order.size(); ++row)
        rowOf[m_order.at(row)] = row;
    QModelIndexList now;
    now.reserve(old.size());
    for (const QModelIndex &index : old)
        now.append(createIndex(rowOf.at(before.at(index.row())), index.column()));
    changePersistentIndexList(old, now);
}
