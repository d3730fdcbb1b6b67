// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/nzbfile.h>

#include <QAbstractTableModel>
#include <QVector>

/// The entries of one NZB file, one a row. GUI thread.
class DetailsModel final : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { SubjectColumn, SizeColumn, SegmentsColumn, NewsgroupsColumn, PostedColumn, ColumnCount };

    explicit DetailsModel(QObject *parent = nullptr);

    /// In the order of the file.
    void setEntries(const QVector<NzbEntry> &entries);
    /// Texts and numbers follow the language.
    void retranslate();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// What is equal stays in the order of the file; so does everything when @p column is -1.
    void sort(int column, Qt::SortOrder order) override;

private:
    static QString text(const NzbEntry &entry, int column);
    static QString toolTip(const NzbEntry &entry);
    QVector<int> sorted(int column, Qt::SortOrder order) const;
    void keepPersistentIndexes(const QVector<int> &before);

    QVector<NzbEntry> m_entries;
    QVector<int> m_order; ///< the entry of each row
};
