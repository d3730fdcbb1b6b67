// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/stylehelper.h>

#include <QApplication>
#include <QWidget>

#include <cmath>

namespace {

constexpr QRgb programsOwn = 0xff3a4a65;
QRgb base = programsOwn;

qreal linear(qreal channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

qreal luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor mixed(const QColor &one, const QColor &other, qreal share)
{
    const auto channel = [share](qreal a, qreal b) { return a + (b - a) * share; };
    return QColor::fromRgbF(channel(one.redF(), other.redF()), channel(one.greenF(), other.greenF()),
                            channel(one.blueF(), other.blueF()));
}

} // namespace

void StyleHelper::setBaseColor(const QColor &color)
{
    base = color.isValid() ? color.rgb() : programsOwn;
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return;
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets)
        widget->update();
}

QColor StyleHelper::baseColor()
{
    return base;
}

QColor StyleHelper::titleColor()
{
    return readableOn(base);
}

QColor StyleHelper::edgeColor()
{
    return mixed(base, titleColor() == QColor(Qt::white) ? Qt::black : Qt::white, 0.3);
}

QColor StyleHelper::buttonColor(bool pressed)
{
    return mixed(base, titleColor(), pressed ? 0.35 : 0.2);
}

QColor StyleHelper::readableOn(const QColor &background)
{
    const QColor white(Qt::white);
    const QColor black(Qt::black);
    return contrast(white, background) >= contrast(black, background) ? white : black;
}

qreal StyleHelper::contrast(const QColor &one, const QColor &other)
{
    const qreal a = luminance(one) + 0.05;
    const qreal b = luminance(other) + 0.05;
    return a > b ? a / b : b / a;
}
