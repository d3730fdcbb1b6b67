// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

/// The cross on the tab of a page, drawn in the colour of the tab's text: the one of the style is dark in a
/// dark palette, too.
class PageCloseButton final : public QAbstractButton {
    Q_OBJECT
public:
    explicit PageCloseButton(QWidget *parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void retranslate();
};
