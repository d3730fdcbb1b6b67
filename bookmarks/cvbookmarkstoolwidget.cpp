// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/cvbookmarkstoolwidget.h"

#include "bookmarks/cvbookmarkstoolwidgetprivate.h"

#include <halvora/mainwindow.h>

#include <QEvent>

CVBookmarksToolWidget::CVBookmarksToolWidget(CVBookmarkManager *model, CVConnectorPlugin *plugin,
                                             MainWindow *parent)
    : FancyDockWidget(parent)
{
    setObjectName(QStringLiteral("CVBookmarksDock"));
    setWidget(new CVBookmarksToolWidgetPrivate(model, plugin, parent));
    setWindowTitle(tr("Bookmarks"));
}

void CVBookmarksToolWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        setWindowTitle(tr("Bookmarks"));
    FancyDockWidget::changeEvent(event);
}
