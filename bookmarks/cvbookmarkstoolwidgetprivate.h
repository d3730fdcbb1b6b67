// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QIcon>
#include <QPersistentModelIndex>
#include <QVector>
#include <QWidget>

class BookmarkItem;
class BookmarkTreeView;
class CVBookmarkManager;
class CVConnectorPlugin;
class QAction;
class QActionGroup;
class QMenu;

/// What the bookmarks panel holds: the tree, its menus and what they do. A menu means the item that was under
/// the pointer when it opened, whatever is selected. Opens newsgroups through the connector plug-in. Every
/// slot does nothing for an index that is not, or no longer, valid. GUI thread.
///
/// The sources are by job: the panel, and its actions and menus.
class CVBookmarksToolWidgetPrivate final : public QWidget {
    Q_OBJECT
public:
    /// @p model and @p plugin outlive the widget.
    CVBookmarksToolWidgetPrivate(CVBookmarkManager *model, CVConnectorPlugin *plugin, QWidget *parent);

    QSize sizeHint() const override;

public Q_SLOTS:
    void modelReset();
    void addBookmarkFolder();
    void deleteBookmarkFolder();
    void colorChanged(QAction *action);
    void folderColorChanged(QAction *action);
    void deleteBookmark();
    void bookmarkSelected(const QModelIndex &index);
    void showContextMenu(const QPoint &point);
    void itemCollapsed(const QModelIndex &index);
    void itemExpanded(const QModelIndex &index);

protected:
    void changeEvent(QEvent *event) override;

private:
    void loadFolderIcons();
    void createView();
    void connectView();
    void createActions();
    void createFolderColorActions();
    void createColorActions();
    QAction *createColorAction(QActionGroup *group, const QString &color, const QIcon &icon);
    void retranslate();
    void fillBookmarkMenu(QMenu &menu, const BookmarkItem &bookmark);
    void fillFolderMenu(QMenu &menu, const BookmarkItem &folder);
    /// The model's present index for the item of the last menu; invalid for the empty area, too.
    QModelIndex contextItem() const;
    void removeContextItem();
    void applyColor(const QAction &action);
    void openFolder(const BookmarkItem &folder);

    CVConnectorPlugin *const m_plugin;
    CVBookmarkManager *const m_model;
    BookmarkTreeView *m_view = nullptr;
    QPersistentModelIndex m_contextIndex; ///< of the last menu; invalid for the empty area
    QActionGroup *m_folderColorGroup = nullptr;
    QVector<QAction *> m_folderColorActions;
    QHash<QString, QIcon> m_folderIcons; ///< by the name of the colour
    QActionGroup *m_colorGroup = nullptr;
    QVector<QAction *> m_colorActions; ///< the first one is for no colour
    QAction *m_addFolderAction = nullptr;
    QAction *m_deleteFolderAction = nullptr;
    QAction *m_addBookmarkAction = nullptr;
    QAction *m_deleteBookmarkAction = nullptr;
};
