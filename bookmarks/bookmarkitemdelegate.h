// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

class CVBookmarkManager;

/// Paints the colour of a bookmark behind its row. Folders show theirs by their icon.
class BookmarkItemDelegate final : public QStyledItemDelegate {
    Q_OBJECT
public:
    /// @p model outlives the delegate.
    explicit BookmarkItemDelegate(CVBookmarkManager *model, QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

private:
    void paintColor(QPainter *painter, const QRect &area, const QModelIndex &index) const;

    CVBookmarkManager *const m_model;
};
