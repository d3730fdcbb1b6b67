// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/trafficjournal.h>

#include <QVector>
#include <QWidget>

/// A bar for each day or month. The pointer tells the exact figure of the bar below it, a screen reader
/// learns all of them from the accessible description.
class TrafficChart final : public QWidget {
    Q_OBJECT
public:
    enum class Scale { Days, Months };

    explicit TrafficChart(Scale scale, QWidget *parent = nullptr);

    void setPeriods(const QVector<TrafficJournal::Period> &periods);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void describe();
    QString periodName(int index) const;
    QString periodText(int index) const;
    QString axisLabel(int index) const;
    double widestAxisLabel() const;
    double step() const;
    int steps() const;
    double top() const;
    QRectF plotArea() const;
    QRectF slot(int index) const;
    QRectF bar(int index) const;
    int indexAt(const QPointF &position) const;
    void setHovered(int index);
    void paintGrid(QPainter &painter) const;
    void paintBars(QPainter &painter) const;
    void paintLabels(QPainter &painter) const;

    const Scale m_scale;
    QVector<TrafficJournal::Period> m_periods;
    qint64 m_largest = 0;
    int m_hovered = -1;
};
