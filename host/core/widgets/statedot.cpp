// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "statedot.h"

#include <QPainter>

StateDot::StateDot(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

void StateDot::setLook(const QColor &color, bool filled)
{
    m_color = color;
    m_filled = filled;
    update();
}

QSize StateDot::sizeHint() const
{
    return {14, 14};
}

void StateDot::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(m_color, 2));
    painter.setBrush(m_filled ? QBrush(m_color) : QBrush(Qt::NoBrush));
    QRectF circle(0, 0, 8, 8);
    circle.moveCenter(QRectF(rect()).center());
    painter.drawEllipse(circle);
}
