// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "article.h"

#include <QAbstractTableModel>
#include <QVector>

/// Articles in the order in which they came. GUI thread.
class ArticleListModel final : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { SubjectColumn, PosterColumn, NewsgroupColumn, DateColumn, SizeColumn, ColumnCount };
    /// What rows are sorted by: numbers as they are, texts as they are shown.
    static constexpr int SortRole = Qt::UserRole;

    explicit ArticleListModel(QObject *parent = nullptr);

    void setArticles(const QVector<Article> &articles);
    void addArticles(const QVector<Article> &articles);
    const Article &article(int row) const { return m_articles.at(row); }
    /// Texts and figures are in another language now.
    void retranslate();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    static QString text(const Article &article, int column);
    static QVariant sortKey(const Article &article, int column);
    static QString toolTip(const Article &article);

    QVector<Article> m_articles;
};
