// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "statsdialog.h"

#include <halvora/stringformat.h>
#include <halvora/trafficjournal.h>

#include "trafficchart.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QStackedWidget>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

constexpr int DaysShown = 30;
constexpr int MonthsShown = 12;

QString byteText(qint64 bytes)
{
    return StringFormat::byteCount(bytes, StringFormat::ByteFormatDefault, StringFormat::BinaryNotation, -1);
}

} // namespace

StatsDialog::StatsDialog(const TrafficJournal &journal, QWidget *parent)
    : QDialog(parent)
    , m_journal(journal)
{
    setObjectName(QStringLiteral("StatsDialog"));
    auto *figures = new QGridLayout;
    const int space = fontMetrics().height();
    figures->setHorizontalSpacing(space * 2);
    figures->setVerticalSpacing(space / 8);
    m_today = addFigure(figures);
    m_thisMonth = addFigure(figures);
    m_lastMonth = addFigure(figures);
    m_total = addFigure(figures);
    figures->setColumnStretch(figures->columnCount(), 1);

    m_pages = new QStackedWidget;
    m_pages->addWidget(makeCharts());
    m_pages->addWidget(makeEmptyState());

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);

    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(space);
    layout->setContentsMargins(space, space, space, space);
    layout->addLayout(figures);
    layout->addWidget(m_pages, 1);
    layout->addWidget(buttons);
    retranslate();
}

void StatsDialog::refresh()
{
    const QVector<TrafficJournal::Period> days = m_journal.lastDays(DaysShown);
    const QVector<TrafficJournal::Period> months = m_journal.lastMonths(MonthsShown);
    const qint64 total = m_journal.totalBytes();
    m_today.value->setText(byteText(days.constLast().bytes));
    m_thisMonth.value->setText(byteText(months.constLast().bytes));
    m_lastMonth.value->setText(byteText(months.at(MonthsShown - 2).bytes));
    m_total.value->setText(byteText(total));
    m_days->setPeriods(days);
    m_months->setPeriods(months);
    m_pages->setCurrentIndex(total > 0 ? 0 : 1);
}

void StatsDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDialog::changeEvent(event);
}

StatsDialog::Figure StatsDialog::addFigure(QGridLayout *grid)
{
    const Figure figure{new QLabel, new QLabel};
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    large.setWeight(QFont::DemiBold);
    figure.value->setFont(large);
    figure.value->setTextFormat(Qt::PlainText);
    figure.value->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    figure.caption->setBuddy(figure.value);
    const int column = grid->count() / 2;
    grid->addWidget(figure.caption, 0, column);
    grid->addWidget(figure.value, 1, column);
    return figure;
}

QWidget *StatsDialog::makeCharts()
{
    m_tabs = new QTabWidget;
    m_days = new TrafficChart(TrafficChart::Scale::Days);
    m_months = new TrafficChart(TrafficChart::Scale::Months);
    m_tabs->addTab(m_days, QString());
    m_tabs->addTab(m_months, QString());
    return m_tabs;
}

QLabel *StatsDialog::makeEmptyState()
{
    m_empty = new QLabel;
    m_empty->setObjectName(QStringLiteral("emptyState"));
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    return m_empty;
}

void StatsDialog::retranslate()
{
    setWindowTitle(tr("Traffic Statistics"));
    m_today.caption->setText(tr("Today"));
    m_thisMonth.caption->setText(tr("This month"));
    m_lastMonth.caption->setText(tr("Last month"));
    m_total.caption->setText(tr("In total"));
    m_tabs->setTabText(0, tr("By &day"));
    m_tabs->setTabText(1, tr("By &month"));
    m_empty->setText(tr("Nothing has been downloaded yet.\n"
                        "What you download will show up here, day by day."));
    refresh();
}
