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

void tellAloud(QLabel *label)
{
    QAccessibleEvent alert(label, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

// The same colours on light and dark windows: it has to be seen, and is read easily.
void makeEmphatic(QLabel *label)
{
    QPalette colours = label->palette();
    colours.setColor(QPalette::Window, QColor(0xb3, 0x26, 0x1e));
    colours.setColor(QPalette::WindowText, Qt::white);
    label->setPalette(colours);
    label->setAutoFillBackground(true);
    label->setContentsMargins(8, 0, 8, 0);
    label->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred); // no wider than its words
}

} // namespace

StatusLine::StatusLine(const TrafficMeter &meter, QWidget *parent)
    : QStatusBar(parent)
    , m_dot(new StateDot(this))
    , m_stateText(new ElidedLabel(this))
    , m_notice(new ElidedLabel(this))
    , m_lasting(new ElidedLabel(this))
    , m_noticeTimer(new QTimer(this))
{
    setObjectName(QStringLiteral("halvora.statusLine"));
    m_dot->setObjectName(QStringLiteral("halvora.stateDot"));
    m_stateText->setObjectName(QStringLiteral("halvora.stateText"));
    m_notice->setObjectName(QStringLiteral("halvora.notice"));
    m_lasting->setObjectName(QStringLiteral("halvora.lastingNotice"));
    m_noticeTimer->setObjectName(QStringLiteral("halvora.noticeTimer"));

    m_notice->setContentsMargins(12, 0, 6, 0);
    setContentsMargins(6, 1, 4, 1);
    addWidget(m_dot);
    addWidget(m_stateText);
    addWidget(m_notice, 1);           // by its stretch it gives way before the state does
    addPermanentWidget(m_lasting, 3); // gives way before the state too, but after the notice
    m_lasting->hide();
    makeEmphatic(m_lasting);
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
    tellAloud(m_notice);
}

void StatusLine::showLastingNotice(const QString &sentence)
{
    const QString before = m_lasting->text();
    m_lasting->showText(sentence);
    m_lasting->setVisible(!m_lasting->text().isEmpty());
    if (m_lasting->text() != before && !m_lasting->text().isEmpty())
        tellAloud(m_lasting);
}

void StatusLine::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        showState();
    QStatusBar::changeEvent(event);
}
