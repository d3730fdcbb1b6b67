// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QWidget>

/// A dot in a colour, or a ring. It says nothing that the words beside it do not say.
class StateDot final : public QWidget {
    Q_OBJECT
public:
    explicit StateDot(QWidget *parent);

    void setLook(const QColor &color, bool filled);
    QColor color() const { return m_color; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor m_color;
    bool m_filled = false;
};
