// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "panels/cvmessagestoolwidget.h"

#include "panels/cvmessagestoolwidgetprivate.h"

#include <halvora/mainwindow.h>

#include <QEvent>

CVMessagesToolWidget::CVMessagesToolWidget(Connector *connector, MainWindow *parent)
    : FancyDockWidget(parent)
{
    setObjectName(QStringLiteral("MessagesToolWidget"));
    setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    setWidget(new CVMessagesToolWidgetPrivate(connector, this));
    setWindowTitle(tr("Messages"));
}

void CVMessagesToolWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        setWindowTitle(tr("Messages"));
    FancyDockWidget::changeEvent(event);
}
