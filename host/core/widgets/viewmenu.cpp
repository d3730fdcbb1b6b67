// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "viewmenu.h"

#include <QDockWidget>
#include <QEvent>

ViewMenu::ViewMenu(QWidget *parent)
    : QMenu(parent)
    , m_separator(addSeparator())
    , m_reset(addAction(QString()))
{
    setObjectName(QStringLiteral("halvora.viewMenu"));
    m_reset->setObjectName(QStringLiteral("halvora.resetLayout"));
    connect(m_reset, &QAction::triggered, this, &ViewMenu::resetRequested);
}

void ViewMenu::addDock(QDockWidget *dock)
{
    if (m_entries.contains(dock))
        return;
    auto *entry = new QAction(this);
    entry->setObjectName(QLatin1String("halvora.view.") + dock->objectName());
    entry->setCheckable(true);
    entry->setChecked(!dock->isHidden());
    m_entries.insert(dock, entry);
    insertAction(m_separator, entry);
    followTitle(dock);

    dock->installEventFilter(this);
    connect(dock, &QWidget::windowTitleChanged, this, [this, dock] { followTitle(dock); });
    connect(dock, &QObject::destroyed, this, &ViewMenu::forget);
    connect(entry, &QAction::triggered, dock, [dock](bool shown) {
        dock->setVisible(shown);
        if (shown)
            dock->raise(); // it may stand behind another one as a tab
    });
}

QList<QAction *> ViewMenu::dockActions() const
{
    return actions().mid(0, m_entries.size());
}

void ViewMenu::retranslate()
{
    setTitle(tr("&View"));
    m_reset->setText(tr("&Reset Layout"));
}

void ViewMenu::followTitle(const QDockWidget *dock)
{
    QString title = dock->windowTitle();
    m_entries.value(dock)->setText(title.replace(QLatin1Char('&'), QLatin1String("&&")));
}

void ViewMenu::forget(QObject *dock)
{
    delete m_entries.take(dock);
}

bool ViewMenu::eventFilter(QObject *watched, QEvent *event)
{
    // Not visibilityChanged: that also says "hidden" of a panel behind a tab or in a minimised window.
    const bool asked = event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent ||
                       event->type() == QEvent::Show || event->type() == QEvent::Hide;
    if (QAction *entry = asked ? m_entries.value(watched) : nullptr)
        entry->setChecked(!static_cast<QWidget *>(watched)->isHidden());
    return QMenu::eventFilter(watched, event);
}
