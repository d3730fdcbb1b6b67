// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QMenu>

class QDockWidget;

/// The menu that shows and hides the panels. QDockWidget has an action for that too, but disables it for a
/// panel that has no close button; here every panel can be hidden.
class ViewMenu final : public QMenu {
    Q_OBJECT
public:
    explicit ViewMenu(QWidget *parent);

    /// Adds an entry for @p dock; it goes when the dock goes.
    void addDock(QDockWidget *dock);
    /// The entries of the panels that exist, in the order in which they were added.
    QList<QAction *> dockActions() const;
    void retranslate();

Q_SIGNALS:
    void resetRequested();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void followTitle(const QDockWidget *dock);
    void forget(QObject *dock);

    QHash<const QObject *, QAction *> m_entries;
    QAction *m_separator;
    QAction *m_reset;
};
