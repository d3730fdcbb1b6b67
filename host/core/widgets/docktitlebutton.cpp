// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "docktitlebutton.h"

#include <halvora/stylehelper.h>

#include <halvora/plaintooltip.h>

#include <QPainter>

DockTitleButton::DockTitleButton(Symbol symbol, QWidget *parent)
    : QAbstractButton(parent)
    , m_symbol(symbol)
{
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void DockTitleButton::describe(const QString &text)
{
    setAccessibleName(text);
    setToolTip(plainToolTip(text));
}

QSize DockTitleButton::sizeHint() const
{
    return {18, 18};
}

void DockTitleButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    if (isDown() || underMouse()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(StyleHelper::buttonColor(isDown()));
        painter.drawRoundedRect(frame, 3, 3);
    }
    painter.setBrush(Qt::NoBrush);
    if (hasFocus()) {
        painter.setPen(QPen(StyleHelper::titleColor(), 1, Qt::DotLine));
        painter.drawRoundedRect(frame, 3, 3);
    }
    painter.translate((width() - 18) / 2.0, (height() - 18) / 2.0);
    painter.setPen(QPen(StyleHelper::titleColor(), 1.4, Qt::SolidLine, Qt::RoundCap, Qt::MiterJoin));
    if (m_symbol == Close) {
        painter.drawLine(QPointF(5.5, 5.5), QPointF(12.5, 12.5));
        painter.drawLine(QPointF(12.5, 5.5), QPointF(5.5, 12.5));
    } else {
        painter.drawRect(QRectF(4.7, 7.3, 6, 6));
        painter.drawPolyline(QVector<QPointF>{{7.3, 4.7}, {13.3, 4.7}, {13.3, 10.7}});
    }
}

void DockTitleButton::enterEvent(QEvent *event)
{
    QAbstractButton::enterEvent(event);
    update();
}

void DockTitleButton::leaveEvent(QEvent *event)
{
    QAbstractButton::leaveEvent(event);
    update();
}
