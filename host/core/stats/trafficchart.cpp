// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "trafficchart.h"

#include <halvora/stringformat.h>

#include <QEvent>
#include <QHelpEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QStringList>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr int Gap = 8;        // between the plot and what stands around it
constexpr double Corner = 3;  // radius
constexpr double Filled = .7; // part of a bar's slot

QColor blended(const QColor &front, const QColor &back, double part)
{
    const auto mix = [part](double a, double b) { return part * a + (1 - part) * b; };
    return QColor::fromRgbF(mix(front.redF(), back.redF()), mix(front.greenF(), back.greenF()),
                            mix(front.blueF(), back.blueF()));
}

QString byteText(double bytes)
{
    // The largest qint64 is no double, so the next one is already too large for a conversion.
    const auto limit = double(std::numeric_limits<qint64>::max());
    const auto count = bytes >= limit ? std::numeric_limits<qint64>::max() : qint64(bytes);
    return StringFormat::byteCount(count, StringFormat::ByteFormatDefault, StringFormat::BinaryNotation, -1);
}

} // namespace

TrafficChart::TrafficChart(Scale scale, QWidget *parent)
    : QWidget(parent)
    , m_scale(scale)
{
    setMouseTracking(true);
}

void TrafficChart::setPeriods(const QVector<TrafficJournal::Period> &periods)
{
    m_periods = periods;
    m_largest = 0;
    for (const TrafficJournal::Period &period : periods)
        m_largest = std::max(m_largest, period.bytes);
    setHovered(-1);
    describe();
    update();
}

QSize TrafficChart::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 18};
}

QSize TrafficChart::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 40, fontMetrics().height() * 8};
}

bool TrafficChart::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const int index = indexAt(help->pos());
    if (index < 0)
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), periodText(index), this, slot(index).toAlignedRect());
    return true;
}

void TrafficChart::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange || event->type() == QEvent::LocaleChange) {
        describe();
        update();
    }
    QWidget::changeEvent(event);
}

void TrafficChart::mouseMoveEvent(QMouseEvent *event)
{
    setHovered(indexAt(event->localPos()));
}

void TrafficChart::leaveEvent(QEvent *event)
{
    setHovered(-1);
    QWidget::leaveEvent(event);
}

void TrafficChart::describe()
{
    setAccessibleName(m_scale == Scale::Days ? tr("Traffic by day") : tr("Traffic by month"));
    QStringList texts;
    for (int i = m_periods.size() - 1; i >= 0; --i) {
        if (m_periods.at(i).bytes > 0)
            texts.append(periodText(i));
    }
    setAccessibleDescription(texts.isEmpty() ? tr("No traffic") : texts.join(QLatin1String("; ")));
}

QString TrafficChart::periodName(int index) const
{
    const QDate first = m_periods.at(index).first;
    if (m_scale == Scale::Days)
        return QLocale().toString(first, QLocale::LongFormat);
    //: A month and its year, 1 and 2 in that order
    return tr("%1 %2").arg(QLocale().standaloneMonthName(first.month())).arg(first.year());
}

QString TrafficChart::periodText(int index) const
{
    //: 1 is a day or a month, 2 is an amount such as "1.5 GiB"
    return tr("%1: %2").arg(periodName(index), byteText(double(m_periods.at(index).bytes)));
}

QString TrafficChart::axisLabel(int index) const
{
    const QDate first = m_periods.at(index).first;
    if (m_scale == Scale::Months)
        return QLocale().standaloneMonthName(first.month(), QLocale::ShortFormat);
    //: The day and month below a bar; the letters are those of QDate::toString
    return QLocale().toString(first, tr("d MMM"));
}

double TrafficChart::widestAxisLabel() const
{
    int widest = 1;
    for (int i = 0; i < m_periods.size(); ++i)
        widest = std::max(widest, fontMetrics().horizontalAdvance(axisLabel(i)));
    return widest;
}

double TrafficChart::step() const
{
    double step = 1;
    while (step * 4 < double(m_largest))
        step *= 2;
    return step;
}

int TrafficChart::steps() const
{
    return std::max(1, int(std::ceil(double(m_largest) / step())));
}

double TrafficChart::top() const
{
    return steps() * step();
}

QRectF TrafficChart::plotArea() const
{
    double labels = 0;
    for (int line = 0; line <= steps(); ++line)
        labels = std::max(labels, double(fontMetrics().horizontalAdvance(byteText(line * step()))));
    const int height = fontMetrics().height();
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const double near = labels + 2 * Gap;
    const double far =
        std::max(double(Gap), widestAxisLabel() / 2); // the last label is centred below its bar
    return QRectF(rect()).adjusted(mirrored ? far : near, height / 2.0 + Gap, mirrored ? -near : -far,
                                   -height - 2 * Gap);
}

QRectF TrafficChart::slot(int index) const
{
    const QRectF plot = plotArea();
    const double width = plot.width() / m_periods.size();
    const int place = layoutDirection() == Qt::RightToLeft ? m_periods.size() - 1 - index : index;
    return {plot.left() + place * width, plot.top(), width, plot.height()};
}

QRectF TrafficChart::bar(int index) const
{
    const QRectF all = slot(index);
    const qint64 bytes = m_periods.at(index).bytes;
    // Even little traffic is some, so it is seen.
    const double height = bytes > 0 ? std::max(2.0, all.height() * (double(bytes) / top())) : 0;
    const double margin = all.width() * (1 - Filled) / 2;
    return {all.left() + margin, all.bottom() - height, all.width() - 2 * margin, height};
}

int TrafficChart::indexAt(const QPointF &position) const
{
    for (int i = 0; i < m_periods.size(); ++i) {
        if (slot(i).contains(position))
            return i;
    }
    return -1;
}

void TrafficChart::setHovered(int index)
{
    if (std::exchange(m_hovered, index) != index)
        update();
}

void TrafficChart::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto); // a figure reads in the direction of its own text
    painter.fillRect(rect(), palette().base());
    if (m_periods.isEmpty())
        return;
    paintGrid(painter);
    paintBars(painter);
    paintLabels(painter);
}

void TrafficChart::paintGrid(QPainter &painter) const
{
    const QRectF plot = plotArea();
    const QColor base = palette().color(QPalette::Base);
    const QColor text = palette().color(QPalette::Text);
    const int height = fontMetrics().height();
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const Qt::Alignment side = mirrored ? Qt::AlignLeft : Qt::AlignRight;
    const double labelLeft = mirrored ? plot.right() + Gap : 0;
    const double labelWidth = mirrored ? width() - labelLeft : plot.left() - Gap;
    for (int line = 0; line <= steps(); ++line) {
        const double y = std::round(plot.bottom() - plot.height() * line / steps()) - .5;
        painter.setPen(QPen(blended(text, base, line > 0 ? .15 : .45), 1));
        painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
        painter.setPen(blended(text, base, .7));
        painter.drawText(QRectF(labelLeft, y - height / 2.0, labelWidth, height),
                         int(side | Qt::AlignVCenter | Qt::AlignAbsolute), byteText(line * step()));
    }
}

void TrafficChart::paintBars(QPainter &painter) const
{
    const QColor colour = palette().color(QPalette::Highlight);
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < m_periods.size(); ++i) {
        const QRectF area = bar(i);
        if (area.height() <= 0)
            continue;
        // Round at the top only: the bar is drawn beyond its foot, which the clip takes away.
        painter.save();
        painter.setClipRect(area);
        painter.setBrush(i == m_hovered ? blended(palette().color(QPalette::Text), colour, .25) : colour);
        painter.drawRoundedRect(area.adjusted(0, 0, 0, Corner), Corner, Corner);
        painter.restore();
    }
}

void TrafficChart::paintLabels(QPainter &painter) const
{
    const double widest = widestAxisLabel();
    const QRectF plot = plotArea();
    const int every = std::max(1, int(std::ceil((widest + Gap) / (plot.width() / m_periods.size()))));
    painter.setPen(blended(palette().color(QPalette::Text), palette().color(QPalette::Base), .7));
    for (int i = m_periods.size() - 1; i >= 0; i -= every) {
        const QRectF area(slot(i).center().x() - widest / 2, plot.bottom() + Gap, widest,
                          fontMetrics().height());
        painter.drawText(area, Qt::AlignCenter | Qt::TextDontClip, axisLabel(i));
    }
}
