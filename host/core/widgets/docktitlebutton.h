// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

/// A button in the title bar of a panel, drawn in the colours of StyleHelper: those of the style would not be
/// seen on every base colour.
class DockTitleButton final : public QAbstractButton {
    Q_OBJECT
public:
    enum Symbol { Float, Close };

    DockTitleButton(Symbol symbol, QWidget *parent);

    /// What the button does, for the tool tip and for a screen reader.
    void describe(const QString &text);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    const Symbol m_symbol;
};
