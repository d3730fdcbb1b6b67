// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "newsgrouplistmodel.h"

#include "newsgroupdrag.h"

#include <halvora/bookmarkprovider.h>
#include <halvora/hpixmaps.h>

#include <algorithm>

namespace {

constexpr int markSize = 16;

} // namespace

NewsgroupListModel::NewsgroupListModel(QObject *parent)
    : QAbstractTableModel(parent)
    , m_mark(hSvgPixmap(QStringLiteral(":/icons/bookmark.svg"), markSize))
{
}

void NewsgroupListModel::setTable(const NewsgroupTable &table)
{
    beginResetModel();
    m_table = table;
    m_filter.setTable(table);
    endResetModel();
}

void NewsgroupListModel::setFilter(const QString &text)
{
    beginResetModel();
    m_filter.setText(text);
    endResetModel();
}

void NewsgroupListModel::setBookmarks(BookmarkProvider *provider)
{
    if (provider == m_bookmarks)
        return;
    if (m_bookmarks)
        m_bookmarks->disconnect(this);
    m_bookmarks = provider;
    if (provider) {
        connect(provider, &BookmarkProvider::bookmarkAdded, this, &NewsgroupListModel::markChanged);
        connect(provider, &BookmarkProvider::bookmarkRemoved, this, &NewsgroupListModel::markChanged);
        connect(provider, &BookmarkProvider::bookmarksChanged, this, &NewsgroupListModel::allMarksChanged);
        connect(provider, &QObject::destroyed, this, &NewsgroupListModel::allMarksChanged);
    }
    allMarksChanged();
}

void NewsgroupListModel::retranslate()
{
    Q_EMIT headerDataChanged(Qt::Horizontal, NameColumn, DescriptionColumn);
}

void NewsgroupListModel::markChanged(const QString &name)
{
    const int row = modelRow(m_table.row(name));
    if (row >= 0)
        Q_EMIT dataChanged(index(row, NameColumn), index(row, NameColumn));
}

void NewsgroupListModel::allMarksChanged()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, NameColumn), index(rowCount() - 1, NameColumn));
}

bool NewsgroupListModel::isBookmarked(int row) const
{
    return m_bookmarks && m_bookmarks->isBookmarked(name(row));
}

QString NewsgroupListModel::name(int row) const
{
    return m_table.name(tableRow(row));
}

int NewsgroupListModel::modelRow(int tableRow) const
{
    const QVector<int> &rows = m_filter.rows();
    const auto found = std::lower_bound(rows.cbegin(), rows.cend(), tableRow);
    return found != rows.cend() && *found == tableRow ? int(found - rows.cbegin()) : -1;
}

QStringList NewsgroupListModel::names(const QModelIndexList &indexes) const
{
    QVector<int> rows;
    for (const QModelIndex &index : indexes)
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    QStringList names;
    for (const int row : qAsConst(rows))
        names.append(name(row));
    return names;
}

int NewsgroupListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_filter.rows().size();
}

int NewsgroupListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant NewsgroupListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == NameColumn ? name(index.row()) : m_table.description(tableRow(index.row()));
    case Qt::DecorationRole:
        return index.column() == NameColumn && isBookmarked(index.row()) ? QVariant(m_mark) : QVariant();
    case Qt::ToolTipRole:
        return toolTip(index.row());
    case Qt::AccessibleDescriptionRole:
        return index.column() == NameColumn && isBookmarked(index.row()) ? tr("Bookmarked") : QString();
    default:
        return {};
    }
}

QString NewsgroupListModel::toolTip(int row) const
{
    QStringList lines{name(row)};
    const QString description = m_table.description(tableRow(row));
    if (!description.isEmpty())
        lines.append(description);
    if (isBookmarked(row))
        lines.append(tr("Bookmarked"));
    return lines.join(QLatin1Char('\n'));
}

QVariant NewsgroupListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == NameColumn ? tr("Newsgroup") : tr("Description");
}

Qt::ItemFlags NewsgroupListModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() ? flags | Qt::ItemNeverHasChildren | Qt::ItemIsDragEnabled : flags;
}

QStringList NewsgroupListModel::mimeTypes() const
{
    return {newsgroupdrag::mimeType(), QStringLiteral("text/plain")};
}

QMimeData *NewsgroupListModel::mimeData(const QModelIndexList &indexes) const
{
    return newsgroupdrag::mimeData(names(indexes));
}

Qt::DropActions NewsgroupListModel::supportedDragActions() const
{
    return Qt::CopyAction;
}
