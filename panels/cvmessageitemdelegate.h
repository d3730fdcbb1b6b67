// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QStyledItemDelegate>

class QAbstractItemView;

/// Paints the cross that deletes a message, which stands out under the pointer. A message that can not be
/// deleted has none.
class CVMessageItemDelegate final : public QStyledItemDelegate {
    Q_OBJECT
public:
    /// @p view, whose cells this paints, owns the delegate.
    explicit CVMessageItemDelegate(QAbstractItemView *view);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

private:
    QAbstractItemView *const m_view;
    const QPixmap m_hoverPixmap;
    const QPixmap m_normalPixmap;
};
