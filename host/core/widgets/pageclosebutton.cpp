// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "pageclosebutton.h"

#include <QEvent>
#include <QPainter>

namespace {

constexpr int side = 16; // device-independent pixels

} // namespace

PageCloseButton::PageCloseButton(QWidget *parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::NoFocus);
    resize(sizeHint());
    retranslate();
}

QSize PageCloseButton::sizeHint() const
{
    return {side, side};
}

void PageCloseButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor color = palette().color(QPalette::WindowText);
    if (isDown() || underMouse()) {
        color.setAlpha(isDown() ? 80 : 40);
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawRoundedRect(rect(), 3, 3);
        color.setAlpha(255);
    }
    painter.setPen(QPen(color, 1.4, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(4.5, 4.5), QPointF(11.5, 11.5));
    painter.drawLine(QPointF(11.5, 4.5), QPointF(4.5, 11.5));
}

void PageCloseButton::enterEvent(QEvent *event)
{
    QAbstractButton::enterEvent(event);
    update();
}

void PageCloseButton::leaveEvent(QEvent *event)
{
    QAbstractButton::leaveEvent(event);
    update();
}

void PageCloseButton::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QAbstractButton::changeEvent(event);
}

void PageCloseButton::retranslate()
{
    setAccessibleName(tr("Close the page"));
    setToolTip(tr("Close the page"));
}
