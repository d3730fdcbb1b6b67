// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// One line of plain text that is cut off with an ellipsis where it does not fit, and is told whole by its
/// tool tip. It never makes its window wider.
class ElidedLabel final : public QLabel {
    Q_OBJECT
public:
    explicit ElidedLabel(QWidget *parent);

    /// Shows @p text with its line breaks as blanks; a text of thousands of characters is cut off.
    void showText(const QString &text);

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};
