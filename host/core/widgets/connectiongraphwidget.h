// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QBasicTimer>
#include <QColor>
#include <QVector>
#include <QWidget>

#include <functional>

class TrafficMeter;

/// The rate at which articles came from news servers in the last minute, as a small graph. It looks at the
/// meter once a second while it is visible, and not at all otherwise. GUI thread.
class HALVORA_CORE_EXPORT ConnectionGraphWidget : public QWidget {
    Q_OBJECT
public:
    /// Milliseconds from any fixed moment; never goes back.
    using Clock = std::function<qint64()>;

    /// @p meter outlives the widget.
    explicit ConnectionGraphWidget(const TrafficMeter &meter, QWidget *parent = nullptr);
    ~ConnectionGraphWidget() override;
    Q_DISABLE_COPY(ConnectionGraphWidget)

    /// The colours of all graphs. Invalid ones are ignored.
    static void setBackgroundColor(const QColor &color);
    static QColor backgroundColor();
    static void setBorderColor(const QColor &color);
    static QColor borderColor();
    static void setForegroundColor(const QColor &color);
    static QColor foregroundColor();

    /// Sixty rates in bytes a second, one for each second, the newest last.
    const QVector<qint64> &rates() const { return m_rates; }
    /// Looks at the meter now, as happens by itself once a second. What came while nobody looked counts as an
    /// even flow.
    void sample();
    /// Replaces the steady clock of the system.
    void setClock(const Clock &clock);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void describe();

    const TrafficMeter &m_meter;
    Clock m_clock;
    QBasicTimer m_timer;
    qint64 m_lastTime = 0;
    qint64 m_lastCount = 0;
    QVector<qint64> m_rates;
};
