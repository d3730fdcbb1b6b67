// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/connectiongraphwidget.h>

#include <halvora/trafficmeter.h>

#include <QElapsedTimer>
#include <QEvent>
#include <QLocale>
#include <QPainter>
#include <QTimerEvent>

#include <algorithm>

namespace {

constexpr int seconds = 60;
constexpr qint64 soonest = 500;     // milliseconds; a shorter stretch would show noise
constexpr qint64 lowestPeak = 4096; // bytes a second that fill the graph, so that a keep-alive stays small

struct Colors {
    QColor background{0x33, 0x99, 0xff, 0x20};
    QColor border{0x7f, 0x8c, 0xa3};
    QColor foreground{0x33, 0x99, 0xff};
};

Colors &colors()
{
    static Colors colors;
    return colors;
}

ConnectionGraphWidget::Clock steadyClock()
{
    QElapsedTimer timer;
    timer.start();
    return [timer] { return timer.elapsed(); };
}

} // namespace

ConnectionGraphWidget::ConnectionGraphWidget(const TrafficMeter &meter, QWidget *parent)
    : QWidget(parent)
    , m_meter(meter)
    , m_lastCount(meter.nntpDown())
    , m_rates(seconds)
{
    setObjectName(QStringLiteral("halvora.connectionGraph"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setClock(steadyClock());
    describe();
}

ConnectionGraphWidget::~ConnectionGraphWidget() = default;

void ConnectionGraphWidget::setBackgroundColor(const QColor &color)
{
    if (color.isValid())
        colors().background = color;
}

QColor ConnectionGraphWidget::backgroundColor()
{
    return colors().background;
}

void ConnectionGraphWidget::setBorderColor(const QColor &color)
{
    if (color.isValid())
        colors().border = color;
}

QColor ConnectionGraphWidget::borderColor()
{
    return colors().border;
}

void ConnectionGraphWidget::setForegroundColor(const QColor &color)
{
    if (color.isValid())
        colors().foreground = color;
}

QColor ConnectionGraphWidget::foregroundColor()
{
    return colors().foreground;
}

void ConnectionGraphWidget::setClock(const Clock &clock)
{
    m_clock = clock;
    m_lastTime = m_clock();
}

void ConnectionGraphWidget::sample()
{
    const qint64 now = m_clock();
    const qint64 passed = now - m_lastTime;
    if (passed < soonest)
        return;
    const qint64 count = m_meter.nntpDown();
    const auto rate = qint64(double(std::max<qint64>(0, count - m_lastCount)) * 1000 / double(passed));
    m_lastTime = now;
    m_lastCount = count;

    const QVector<qint64> before = m_rates;
    const int columns = int(std::clamp<qint64>((passed + 500) / 1000, 1, seconds));
    std::rotate(m_rates.begin(), m_rates.begin() + columns, m_rates.end());
    std::fill(m_rates.end() - columns, m_rates.end(), rate);
    // An idle connection, which is most of the day, costs no painting.
    if (m_rates == before)
        return;
    describe();
    update();
}

void ConnectionGraphWidget::describe()
{
    const qint64 rate = m_rates.constLast();
    const QString text =
        rate == 0 ? tr("Nothing is being downloaded from the news servers.")
                  : tr("Downloading %1 per second from the news servers.")
                        .arg(QLocale().formattedDataSize(rate, 1, QLocale::DataSizeTraditionalFormat));
    setAccessibleName(tr("Download rate"));
    if (text == accessibleDescription())
        return;
    setAccessibleDescription(text);
    setToolTip(text);
}

QSize ConnectionGraphWidget::sizeHint() const
{
    return {100, 16};
}

QSize ConnectionGraphWidget::minimumSizeHint() const
{
    return sizeHint();
}

void ConnectionGraphWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), colors().background);

    const QRectF inner = QRectF(rect()).adjusted(1, 1, -1, -1);
    const qint64 peak = std::max(lowestPeak, *std::max_element(m_rates.cbegin(), m_rates.cend()));
    const qreal room = inner.height() - 1;
    QVector<QPointF> area{inner.bottomLeft()};
    for (int i = 0; i < seconds; ++i) {
        const qreal height = 1 + room * qreal(m_rates.at(i)) / qreal(peak);
        area << QPointF(inner.left() + inner.width() * i / (seconds - 1), inner.bottom() - height);
    }
    area << inner.bottomRight();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors().foreground);
    painter.drawPolygon(QPolygonF(area));

    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colors().border, 1));
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

void ConnectionGraphWidget::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    sample();
    m_timer.start(1000, this);
}

void ConnectionGraphWidget::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_timer.stop();
}

void ConnectionGraphWidget::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_timer.timerId())
        sample();
    else
        QWidget::timerEvent(event);
}

void ConnectionGraphWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange || event->type() == QEvent::LocaleChange)
        describe();
    QWidget::changeEvent(event);
}
