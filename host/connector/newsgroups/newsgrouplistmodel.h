// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "newsgroupfilter.h"

#include <QAbstractTableModel>
#include <QPixmap>
#include <QPointer>

class BookmarkProvider;

/// The newsgroups that pass the filter, with a mark at those that are bookmarked. A new list or filter resets
/// the model; newsgroups are told apart across that by their rows in the table. GUI thread.
class NewsgroupListModel final : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { NameColumn, DescriptionColumn };

    explicit NewsgroupListModel(QObject *parent = nullptr);

    void setTable(const NewsgroupTable &table);
    const NewsgroupTable &table() const { return m_table; }
    void setFilter(const QString &text);
    /// Whose bookmarks are marked, null for nobody's. Not owned.
    void setBookmarks(BookmarkProvider *provider);

    /// Texts are in another language now.
    void retranslate();

    QString name(int row) const;
    /// The row in the table of the model's @p row.
    int tableRow(int row) const { return m_filter.rows().at(row); }
    /// The model's row of a row in the table, -1 when it does not pass the filter.
    int modelRow(int tableRow) const;
    /// The names of the rows that @p indexes lie in, each once, from top to bottom.
    QStringList names(const QModelIndexList &indexes) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    Qt::DropActions supportedDragActions() const override;

private:
    bool isBookmarked(int row) const;
    QString toolTip(int row) const;
    void markChanged(const QString &name);
    void allMarksChanged();

    NewsgroupTable m_table;
    NewsgroupFilter m_filter;
    QPointer<BookmarkProvider> m_bookmarks;
    const QPixmap m_mark;
};
