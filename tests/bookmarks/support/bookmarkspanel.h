// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bookmarkstore.h"

#include <halvora/mainwindow.h>

#include <QPoint>

#include <functional>

class BookmarkTreeView;
class CVBookmarksToolWidget;
class CVBookmarksToolWidgetPrivate;
class QAction;
class QMenu;
class QWidget;

/// The bookmarks panel in a main window that is shown, over a store. One at a time.
class BookmarksPanel {
public:
    BookmarksPanel();
    ~BookmarksPanel();
    Q_DISABLE_COPY(BookmarksPanel)

    BookmarkStore &store() { return m_store; }
    OpenBookmarkManager &model() { return m_store.model(); }
    MainWindow &window() { return m_window; }
    CVBookmarksToolWidget *dock() const { return m_dock; }
    CVBookmarksToolWidgetPrivate *content() const;
    BookmarkTreeView *view() const;

    /// Adds a folder with @p newsgroups, named with blanks between them, in it, and shows what is in it.
    QModelIndex addFolder(const char *name, const char *newsgroups = "",
                          const QModelIndex &parent = QModelIndex());
    QModelIndex at(const QVector<int> &rows) const { return m_store.at(rows); }
    QString color(const QModelIndex &index) const;
    /// The field in which a name is being typed, or null.
    QWidget *editor() const;

    /// The middle of the row of @p index in the viewport; below all rows for an invalid one.
    QPoint place(const QModelIndex &index) const;
    void click(const QModelIndex &index, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Clicks with the right button at @p index and lets @p look see the menu, which it may close; false when
    /// none came.
    bool openMenu(const QModelIndex &index, const std::function<void(QMenu &)> &look);
    /// Chooses the entry at the end of @p path from the menu at @p index; false when it is not there.
    bool choose(const QModelIndex &index, const QStringList &path);
    /// The texts of the entries of the menu at @p index, empty ones for separators.
    QStringList menuTexts(const QModelIndex &index);

private:
    BookmarkStore m_store;
    MainWindow m_window;
    CVBookmarksToolWidget *const m_dock; ///< the window's
};

/// The entry of @p menu with this text, or null.
QAction *menuEntry(const QMenu &menu, const QString &text);
/// The texts of the entries of @p menu, empty ones for separators.
QStringList menuTexts(const QMenu &menu);
