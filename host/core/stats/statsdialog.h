// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QGridLayout;
class QLabel;
class QStackedWidget;
class QTabWidget;
class TrafficChart;
class TrafficJournal;

/// What a TrafficJournal holds, as figures and as bars.
class StatsDialog final : public QDialog {
    Q_OBJECT
public:
    /// @p journal outlives the dialog.
    explicit StatsDialog(const TrafficJournal &journal, QWidget *parent = nullptr);

    /// Reads the journal again.
    void refresh();

protected:
    void changeEvent(QEvent *event) override;

private:
    /// A caption above its value.
    struct Figure {
        QLabel *caption;
        QLabel *value;
    };

    Figure addFigure(QGridLayout *grid);
    QWidget *makeCharts();
    QLabel *makeEmptyState();
    void retranslate();

    const TrafficJournal &m_journal;
    Figure m_today;
    Figure m_thisMonth;
    Figure m_lastMonth;
    Figure m_total;
    QStackedWidget *m_pages;
    QTabWidget *m_tabs;
    TrafficChart *m_days;
    TrafficChart *m_months;
    QLabel *m_empty;
};
