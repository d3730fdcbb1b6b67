// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/cvbookmarkstoolwidgetprivate.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/bookmarktreeview.h"
#include "bookmarks/cvbookmarkmanager.h"
#include "bookmarks/foldercolors.h"
#include "connector/cvconnectorplugin.h"

#include <halvora/core.h>
#include <halvora/mainwindow.h>

#include <QActionGroup>
#include <QMenu>

namespace {

/// The colours in the order of the menus, by the names under which they are stored.
QStringList menuColors()
{
    return {QStringLiteral("yellow"), QStringLiteral("orange"), QStringLiteral("red"),
            QStringLiteral("gray"),   QStringLiteral("green"),  QStringLiteral("cyan"),
            QStringLiteral("brown"),  QStringLiteral("blue")};
}

// Without a match nothing is unchecked: the group goes on showing what was chosen last.
void check(const QVector<QAction *> &actions, const QString &color)
{
    for (QAction *action : actions) {
        if (action->data().toString() == color)
            action->setChecked(true);
    }
}

} // namespace

void CVBookmarksToolWidgetPrivate::createActions()
{
    m_addFolderAction = new QAction(this);
    connect(m_addFolderAction, &QAction::triggered, this, &CVBookmarksToolWidgetPrivate::addBookmarkFolder);
    m_deleteFolderAction = new QAction(this);
    connect(m_deleteFolderAction, &QAction::triggered, this,
            &CVBookmarksToolWidgetPrivate::deleteBookmarkFolder);
    m_addBookmarkAction = new QAction(this);
    if (const MainWindow *window = m_plugin->core()->mainWindow())
        connect(m_addBookmarkAction, &QAction::triggered, window, &MainWindow::showNewsgroupsPanel);
    m_deleteBookmarkAction = new QAction(this);
    connect(m_deleteBookmarkAction, &QAction::triggered, this, &CVBookmarksToolWidgetPrivate::deleteBookmark);
    createFolderColorActions();
    createColorActions();
    connect(m_colorGroup, &QActionGroup::triggered, this, &CVBookmarksToolWidgetPrivate::colorChanged);
    connect(m_folderColorGroup, &QActionGroup::triggered, this, &CVBookmarksToolWidgetPrivate::colorChanged);
}

void CVBookmarksToolWidgetPrivate::createFolderColorActions()
{
    m_folderColorGroup = new QActionGroup(this);
    const QStringList colors = menuColors();
    for (const QString &color : colors)
        m_folderColorActions.append(createColorAction(m_folderColorGroup, color, m_folderIcons[color]));
}

void CVBookmarksToolWidgetPrivate::createColorActions()
{
    m_colorGroup = new QActionGroup(this);
    m_colorActions.append(createColorAction(m_colorGroup, QLatin1String(""), QIcon()));
    const QStringList colors = menuColors();
    for (const QString &color : colors)
        m_colorActions.append(createColorAction(m_colorGroup, color, colorSwatchIcon(colorForName(color))));
}

QAction *CVBookmarksToolWidgetPrivate::createColorAction(QActionGroup *group, const QString &color,
                                                         const QIcon &icon)
{
    auto *action = new QAction(group);
    action->setIcon(icon);
    action->setData(color);
    action->setCheckable(true);
    return action;
}

void CVBookmarksToolWidgetPrivate::retranslate()
{
    const QStringList colors = {tr("Yellow"), tr("Orange"), tr("Red"),   tr("Gray"),
                                tr("Green"),  tr("Cyan"),   tr("Brown"), tr("Blue")};
    m_colorActions.first()->setText(tr("None"));
    for (int i = 0; i < colors.size(); ++i) {
        m_folderColorActions.at(i)->setText(colors.at(i));
        m_colorActions.at(i + 1)->setText(colors.at(i));
    }
    m_addFolderAction->setText(tr("Add Folder"));
    m_deleteFolderAction->setText(tr("Delete Folder"));
    m_addBookmarkAction->setText(tr("Add Bookmark"));
    m_deleteBookmarkAction->setText(tr("Delete Bookmark"));
}

void CVBookmarksToolWidgetPrivate::showContextMenu(const QPoint &point)
{
    const QModelIndex index = m_view->indexAt(point);
    m_contextIndex = index;
    QMenu menu;
    if (!index.isValid()) {
        menu.addAction(m_addFolderAction);
    } else {
        const BookmarkItem *item = m_model->itemFromIndex(index);
        if (!item)
            return;
        if (item->isFolder())
            fillFolderMenu(menu, *item);
        else
            fillBookmarkMenu(menu, *item);
    }
    menu.exec(QCursor::pos());
}

void CVBookmarksToolWidgetPrivate::fillBookmarkMenu(QMenu &menu, const BookmarkItem &bookmark)
{
    menu.addAction(m_addBookmarkAction);
    menu.addAction(m_deleteBookmarkAction);
    menu.addSeparator();
    QMenu *colors = menu.addMenu(tr("Color"));
    check(m_colorActions, bookmark.color());
    colors->addActions(m_colorGroup->actions());
}

void CVBookmarksToolWidgetPrivate::fillFolderMenu(QMenu &menu, const BookmarkItem &folder)
{
    menu.addAction(m_deleteFolderAction);
    menu.addAction(m_addFolderAction);
    menu.addSeparator();
    QMenu *colors = menu.addMenu(tr("Folder Color"));
    colors->setIcon(QIcon(QStringLiteral(":/corvia/bookmarks/folder_%1.png").arg(folder.color())));
    check(m_folderColorActions, folder.color());
    for (QAction *action : qAsConst(m_folderColorActions))
        colors->addAction(action);
}

// Folders and bookmarks are coloured alike, and the item of the last menu knows what it is.
void CVBookmarksToolWidgetPrivate::colorChanged(QAction *action)
{
    applyColor(*action);
}

void CVBookmarksToolWidgetPrivate::folderColorChanged(QAction *action)
{
    applyColor(*action);
}

void CVBookmarksToolWidgetPrivate::applyColor(const QAction &action)
{
    const QModelIndex index = contextItem();
    if (index.isValid())
        m_model->setItemColor(index, action.data().toString());
}
