// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "articlefiltermodel.h"

#include "articlelistmodel.h"

ArticleFilterModel::ArticleFilterModel(QObject *parent)
    : QSortFilterProxyModel(parent)
{
    setSortRole(ArticleListModel::SortRole);
    setSortLocaleAware(true);
    sort(ArticleListModel::DateColumn, Qt::DescendingOrder);
}

void ArticleFilterModel::setKind(Kind kind)
{
    m_kind = kind;
    invalidateFilter();
}

bool ArticleFilterModel::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    Q_UNUSED(parent)
    if (m_kind == AllArticles)
        return true;
    const auto *articles = static_cast<const ArticleListModel *>(sourceModel());
    return articles->article(row).isFile() == (m_kind == FilesOnly);
}

// What has the same date was numbered in the order in which it came.
bool ArticleFilterModel::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    if (QSortFilterProxyModel::lessThan(left, right))
        return true;
    if (QSortFilterProxyModel::lessThan(right, left))
        return false;
    const auto *articles = static_cast<const ArticleListModel *>(sourceModel());
    return articles->article(left.row()).number < articles->article(right.row()).number;
}
