// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "statusline.h"

#include <halvora/connectiongraphwidget.h>
#include <halvora/mainwindow.h>

#include "elidedlabel.h"
#include "statedot.h"

#include <QAccessible>
#include <QEvent>
#include <QTimer>

namespace {

constexpr int noticeTime = 30000; // milliseconds

} // namespace

StatusLine::StatusLine(const TrafficMeter &meter, QWidget *parent)
    : QStatusBar(parent)
    , m_dot(new StateDot(this))
    , m_stateText(new ElidedLabel(this))
    , m_notice(new ElidedLabel(this))
    , m_noticeTimer(new QTimer(this))
{
    setObjectName(QStringLiteral("halvora.statusLine"));
    m_dot->setObjectName(QStringLiteral("halvora.stateDot"));
    m_stateText->setObjectName(QStringLiteral("halvora.stateText"));
    m_notice->setObjectName(QStringLiteral("halvora.notice"));
    m_noticeTimer->setObjectName(QStringLiteral("halvora.noticeTimer"));

    m_notice->setContentsMargins(12, 0, 6, 0);
    setContentsMargins(6, 1, 4, 1);
    addWidget(m_dot);
    addWidget(m_stateText);
    addWidget(m_notice, 1); // by its stretch it gives way before the state does
    addPermanentWidget(new ConnectionGraphWidget(meter, this));

    m_noticeTimer->setSingleShot(true);
    connect(m_noticeTimer, &QTimer::timeout, m_notice, [this] { m_notice->showText(QString()); });
    showState();
}

void StatusLine::setOnlineState(int state, const QString &text)
{
    m_state = state;
    m_text = text;
    showState();
}

void StatusLine::showState()
{
    QString word = tr("Offline");
    QColor color(0x7f, 0x8c, 0xa3);
    switch (m_state) {
    case MainWindow::Connecting:
        word = tr("Connecting…");
        color = QColor(0xe0, 0x98, 0x20);
        break;
    case MainWindow::Connected:
        word = tr("Connected");
        color = QColor(0x2e, 0xa0, 0x66);
        break;
    case MainWindow::Lost:
        word = tr("Connection lost");
        color = QColor(0xd9, 0x4a, 0x4a);
        break;
    default:
        break;
    }
    m_dot->setLook(color, m_state == MainWindow::Connecting || m_state == MainWindow::Connected);
    m_stateText->showText(m_text.isEmpty() ? word : m_text);
}

void StatusLine::showNotice(const QString &sentence)
{
    m_notice->showText(sentence);
    m_noticeTimer->start(noticeTime);
    QAccessibleEvent alert(m_notice, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void StatusLine::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        showState();
    QStatusBar::changeEvent(event);
}
