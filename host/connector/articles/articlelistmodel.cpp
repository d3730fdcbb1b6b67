// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "articlelistmodel.h"

#include <halvora/stringformat.h>

#include <QDateTime>

ArticleListModel::ArticleListModel(QObject *parent)
    : QAbstractTableModel(parent)
{
}

void ArticleListModel::setArticles(const QVector<Article> &articles)
{
    beginResetModel();
    m_articles = articles;
    endResetModel();
}

void ArticleListModel::addArticles(const QVector<Article> &articles)
{
    if (articles.isEmpty())
        return;
    beginInsertRows({}, m_articles.size(), m_articles.size() + articles.size() - 1);
    m_articles += articles;
    endInsertRows();
}

void ArticleListModel::retranslate()
{
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1), {Qt::DisplayRole});
}

int ArticleListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_articles.size();
}

int ArticleListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ArticleListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Article &article = m_articles.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return text(article, index.column());
    case Qt::ToolTipRole:
        return toolTip(article);
    case Qt::TextAlignmentRole:
        return int((index.column() == SizeColumn ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case SortRole:
        return sortKey(article, index.column());
    default:
        return {};
    }
}

QString ArticleListModel::text(const Article &article, int column)
{
    switch (column) {
    case SubjectColumn:
        return article.subject.isEmpty() ? tr("(no subject)") : article.subject;
    case PosterColumn:
        return article.poster;
    case NewsgroupColumn:
        return StringFormat::tinyNewsgroupName(article.newsgroup);
    case DateColumn:
        return article.date == Article::noDate
                   ? QString()
                   : StringFormat::dateTime(QDateTime::fromSecsSinceEpoch(article.date),
                                            StringFormat::ShortDateTime);
    case SizeColumn:
        return article.bytes == Article::noSize
                   ? QString()
                   : StringFormat::byteCount(article.bytes, StringFormat::ByteFormatDefault,
                                             StringFormat::BinaryNotation, -1);
    default:
        return {};
    }
}

QVariant ArticleListModel::sortKey(const Article &article, int column)
{
    if (column == DateColumn)
        return article.date;
    return column == SizeColumn ? QVariant(article.bytes) : QVariant(text(article, column));
}

QString ArticleListModel::toolTip(const Article &article)
{
    QStringList lines{text(article, SubjectColumn)};
    for (const QString &line : {article.poster, article.newsgroup, text(article, DateColumn)}) {
        if (!line.isEmpty())
            lines.append(line);
    }
    return lines.join(QLatin1Char('\n'));
}

QVariant ArticleListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole)
        return int((section == SizeColumn ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (role != Qt::DisplayRole)
        return {};
    switch (section) {
    case SubjectColumn:
        return tr("Subject");
    case PosterColumn:
        return tr("From");
    case NewsgroupColumn:
        return tr("Newsgroup");
    case DateColumn:
        return tr("Date");
    case SizeColumn:
        return tr("Size");
    default:
        return {};
    }
}

Qt::ItemFlags ArticleListModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() ? flags | Qt::ItemNeverHasChildren : flags;
}
