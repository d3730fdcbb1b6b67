// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "elidedlabel.h"

#include <halvora/plaintooltip.h>

#include <QPainter>
#include <QStyle>

namespace {

constexpr int longest = 2000;

} // namespace

ElidedLabel::ElidedLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::NoTextInteraction);
}

void ElidedLabel::showText(const QString &text)
{
    // Cut off first: a text of megabytes is not worth looking through.
    setText(text.left(longest).simplified());
    setToolTip(plainToolTip(this->text()));
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {fontMetrics().horizontalAdvance(QChar(0x2026)) * 2, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    drawFrame(&painter);
    const QRect area = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, area.width());
    const int alignment =
        int(QStyle::visualAlignment(layoutDirection(), this->alignment())) | Qt::TextSingleLine;
    style()->drawItemText(&painter, area, alignment, palette(), isEnabled(), shown, foregroundRole());
}
