// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class DockTitleButton;
class QDockWidget;
class QSpacerItem;

/// The title bar of a FancyDockWidget. It lets go of the mouse, so that QDockWidget itself drags, floats and
/// docks the panel.
class DockTitleBar final : public QWidget {
    Q_OBJECT
public:
    explicit DockTitleBar(QDockWidget *dock);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QRect titleArea() const;
    QString elidedTitle() const;
    void followTitle();
    void followFeatures();
    void describeButtons();
    void tellCutOffTitle();

    QDockWidget *const m_dock;
    QSpacerItem *m_space;
    DockTitleButton *m_float;
    DockTitleButton *m_close;
};
