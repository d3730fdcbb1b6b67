// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "panels/cvmessageitemdelegate.h"

#include <halvora/hmessagemanager.h>
#include <halvora/hpixmaps.h>

#include <QAbstractItemView>
#include <QCursor>
#include <QPainter>

namespace {

constexpr int side = 16; // of the cross

QString drawing()
{
    return QStringLiteral(":/svg/delete.svg");
}

} // namespace

CVMessageItemDelegate::CVMessageItemDelegate(QAbstractItemView *view)
    : QStyledItemDelegate(view)
    , m_view(view)
    , m_hoverPixmap(hSvgPixmap(drawing(), side))
    , m_normalPixmap(hSvgPixmapExt(drawing(), side, side, false))
{
}

void CVMessageItemDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                  const QModelIndex &index) const
{
    if (index.column() != HMessageManager::DeleteColumn || index.data(Qt::UserRole).toBool())
        return QStyledItemDelegate::paint(painter, option, index);
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    m_view->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &cell, painter, m_view);

    const QRect &area = option.rect;
    const QPoint pointer = m_view->viewport()->mapFromGlobal(QCursor::pos());
    const QPixmap &pixmap = area.contains(pointer) ? m_hoverPixmap : m_normalPixmap;
    const int height = qRound(pixmap.height() / pixmap.devicePixelRatio());
    painter->drawPixmap(area.left(), area.top() + (area.height() - height) / 2, pixmap);
}
