// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QTabWidget>

/// The middle of the main window: a page to come home to and, as tabs beside it, what people opened. While
/// nothing is open there are no tabs.
class PageArea final : public QTabWidget {
    Q_OBJECT
public:
    explicit PageArea(QWidget *parent);

    /// Takes @p page over as the page that can not be closed, instead of the one before.
    void setHome(QWidget *page);
    /// Takes @p page over and brings it to the front; closing it destroys it.
    void open(QWidget *page);
    /// The page of this object name, or null.
    QWidget *find(const QString &name) const;

protected:
    void changeEvent(QEvent *event) override;

private:
    void addCloseButton(QWidget *page);
    void closePage(int index);
    void followTitle(QWidget *page);
    void retranslate();

    QWidget *m_home = nullptr;
};
