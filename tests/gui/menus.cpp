// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "menus.h"

#include <QAction>
#include <QApplication>
#include <QMenu>

namespace {

// Without the marks of the keys that choose it.
QString seenText(const QAction *action)
{
    QString text = action->text();
    return text.remove(QLatin1Char('&'));
}

QAction *actionOf(const QMenu *menu, const QString &text)
{
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        if (action->isVisible() && !action->isSeparator() && seenText(action) == text)
            return action;
    }
    return nullptr;
}

} // namespace

QMenu *menus::front(const QString &text)
{
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    return menu && actionOf(menu, text) ? menu : nullptr;
}

QStringList menus::texts()
{
    QStringList found;
    if (const auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
        const QList<QAction *> actions = menu->actions();
        for (const QAction *action : actions)
            found.append(action->isSeparator() ? QString() : seenText(action));
    }
    return found;
}

QString menus::current(const QMenu *menu)
{
    return menu && menu->activeAction() ? seenText(menu->activeAction()) : QString();
}

Spot menus::entry(const QString &text)
{
    const auto find = [text]() -> std::optional<QPoint> {
        const QWidgetList widgets = QApplication::topLevelWidgets();
        for (const QWidget *widget : widgets) {
            const auto *menu = qobject_cast<const QMenu *>(widget);
            QAction *action = menu && menu->isVisible() ? actionOf(menu, text) : nullptr;
            if (action)
                return menu->mapToGlobal(menu->actionGeometry(action).center());
        }
        return std::nullopt;
    };
    return {QStringLiteral("the menu entry “%1”").arg(text), find};
}
