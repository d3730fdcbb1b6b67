// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QSortFilterProxyModel>

/// The articles of an ArticleListModel in the order that a person wants, the newest first to begin with, and
/// perhaps without those that carry no files. GUI thread.
class ArticleFilterModel final : public QSortFilterProxyModel {
    Q_OBJECT
public:
    enum Kind { AllArticles, FilesOnly, TextsOnly };

    explicit ArticleFilterModel(QObject *parent = nullptr);

    void setKind(Kind kind);
    Kind kind() const { return m_kind; }

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    Kind m_kind = AllArticles;
};
