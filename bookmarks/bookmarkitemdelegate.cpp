// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/bookmarkitemdelegate.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/cvbookmarkmanager.h"
#include "bookmarks/foldercolors.h"

#include <QApplication>
#include <QPainter>

namespace {

constexpr int opacity = 200; // of 255, so that a selection below shows through
constexpr qreal cornerRadius = 5.0;

} // namespace

BookmarkItemDelegate::BookmarkItemDelegate(CVBookmarkManager *model, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_model(model)
{
}

void BookmarkItemDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const
{
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const QWidget *widget = option.widget;
    const QStyle *style = widget ? widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &row, painter, widget);
    paintColor(painter, option.rect, index);
    style->drawControl(QStyle::CE_ItemViewItem, &row, painter, widget);
}

void BookmarkItemDelegate::paintColor(QPainter *painter, const QRect &area, const QModelIndex &index) const
{
    const BookmarkItem *bookmark = m_model->bookmarkFromIndex(index);
    if (!bookmark || bookmark->color().isEmpty())
        return;
    QColor color = colorForName(bookmark);
    color.setAlpha(opacity);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(color);
    painter->drawRoundedRect(area, cornerRadius, cornerRadius, Qt::AbsoluteSize);
    painter->restore();
}
