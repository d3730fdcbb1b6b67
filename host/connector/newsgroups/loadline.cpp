// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "loadline.h"

#include "lenienttext.h"

#include <halvora/plaintooltip.h>

#include <QEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace {

constexpr int longestProblem = 240;

QLabel *addLabel(QWidget *parent, const char *name)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    // A long word of a server must not make the window as wide.
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return label;
}

} // namespace

LoadLine::LoadLine(QBoxLayout::Direction direction, QWidget *parent)
    : QWidget(parent)
    , m_problem(addLabel(this, "problem"))
    , m_tryAgain(new QPushButton(this))
    , m_summary(addLabel(this, "summary"))
    , m_bar(new QProgressBar(this))
{
    m_problem->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_tryAgain->setObjectName(QStringLiteral("tryAgain"));
    m_bar->setObjectName(QStringLiteral("progress"));
    m_bar->setRange(0, 0);
    m_bar->setTextVisible(false);
    m_bar->setMaximumHeight(6);

    auto *trouble = new QBoxLayout(direction);
    trouble->addWidget(m_problem, 1);
    trouble->addWidget(m_tryAgain, 0, Qt::AlignTop | Qt::AlignLeft);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addLayout(trouble);
    layout->addWidget(m_bar);
    layout->addWidget(m_summary);
    connect(m_tryAgain, &QPushButton::clicked, this, &LoadLine::tryAgainRequested);
    m_tryAgain->setText(tr("Try Again"));
    m_bar->setAccessibleName(tr("Loading"));
    showSummary(QString());
}

void LoadLine::showSummary(const QString &text)
{
    show(QString(), text, false);
}

void LoadLine::showProgress(const QString &text)
{
    show(QString(), text, true);
}

void LoadLine::showProblem(const QString &problem, const QString &summary)
{
    show(problem, summary, false);
}

void LoadLine::show(const QString &problem, const QString &summary, bool isMoving)
{
    m_problem->setText(lenienttext::oneLine(problem, longestProblem));
    m_problem->setToolTip(plainToolTip(problem));
    m_problem->setVisible(!problem.isEmpty());
    m_tryAgain->setVisible(!problem.isEmpty());
    m_summary->setText(summary);
    m_summary->setVisible(!summary.isEmpty());
    m_bar->setVisible(isMoving);
}

void LoadLine::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        m_tryAgain->setText(tr("Try Again"));
        m_bar->setAccessibleName(tr("Loading"));
    }
    QWidget::changeEvent(event);
}
