// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/cvbookmarkstoolwidgetprivate.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/bookmarkitemdelegate.h"
#include "bookmarks/bookmarktreeview.h"
#include "bookmarks/cvbookmarkmanager.h"
#include "connector/cvconnectorplugin.h"

#include <halvora/core.h>
#include <halvora/hindex.h>
#include <halvora/hpixmaps.h>
#include <halvora/newsgroup.h>

#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScreen>
#include <QVBoxLayout>

namespace {

// The category whose facet a folder is opened under; the program names it.
constexpr auto folderCategory = HIndex::MediaCategory(1);

// Device-independent pixels.
int narrowestTree()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen && screen->availableGeometry().width() > 1200 ? 270 : 170;
}

} // namespace

CVBookmarksToolWidgetPrivate::CVBookmarksToolWidgetPrivate(CVBookmarkManager *model,
                                                           CVConnectorPlugin *plugin, QWidget *parent)
    : QWidget(parent)
    , m_plugin(plugin)
    , m_model(model)
{
    // Queued, because the view comes to know of a reset only after this connection was made: called at once,
    // the slot would expand folders that the view then forgets.
    connect(m_model, &QAbstractItemModel::modelReset, this, &CVBookmarksToolWidgetPrivate::modelReset,
            Qt::QueuedConnection);
    loadFolderIcons();
    createView();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    createActions();
    connectView();
    retranslate();
}

QSize CVBookmarksToolWidgetPrivate::sizeHint() const
{
    return {hSidebarWidth(), 200};
}

void CVBookmarksToolWidgetPrivate::loadFolderIcons()
{
    const QStringList colors = folderColorNames();
    for (const QString &color : colors)
        m_folderIcons[color] = QIcon(QStringLiteral(":/corvia/bookmarks/folder_%1.svg").arg(color));
}

void CVBookmarksToolWidgetPrivate::createView()
{
    m_view = new BookmarkTreeView(this);
    m_view->setStyle(m_plugin->core()->systemStyle());
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setDragEnabled(true);
    m_view->setAcceptDrops(true);
    m_view->setDropIndicatorShown(true);
    m_view->setHeaderHidden(true);
    m_view->setAllColumnsShowFocus(true);
    m_view->setMinimumWidth(narrowestTree());
    m_view->setItemDelegate(new BookmarkItemDelegate(m_model, m_view));
    m_view->setModel(m_model);
    m_view->setEditTriggers(QAbstractItemView::DoubleClicked);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->header()->resizeSection(0, 150);
}

void CVBookmarksToolWidgetPrivate::connectView()
{
    connect(m_view, &QAbstractItemView::clicked, this, &CVBookmarksToolWidgetPrivate::bookmarkSelected);
    connect(m_view, &QWidget::customContextMenuRequested, this,
            &CVBookmarksToolWidgetPrivate::showContextMenu);
    connect(m_view, &QTreeView::collapsed, this, &CVBookmarksToolWidgetPrivate::itemCollapsed);
    connect(m_view, &QTreeView::expanded, this, &CVBookmarksToolWidgetPrivate::itemExpanded);
}

void CVBookmarksToolWidgetPrivate::modelReset()
{
    const QModelIndexList folders = m_model->expandedFolderIndexes();
    for (const QModelIndex &folder : folders)
        m_view->setExpanded(folder, true);
}

QModelIndex CVBookmarksToolWidgetPrivate::contextItem() const
{
    if (!m_contextIndex.isValid())
        return {};
    return m_model->index(m_contextIndex.row(), m_contextIndex.column(), m_contextIndex.parent());
}

void CVBookmarksToolWidgetPrivate::addBookmarkFolder()
{
    const QModelIndex parent = contextItem();
    const QModelIndex folder = m_model->addFolder(parent);
    if (!folder.isValid())
        return;
    m_view->setExpanded(parent, true);
    m_view->edit(folder);
}

void CVBookmarksToolWidgetPrivate::deleteBookmarkFolder()
{
    removeContextItem();
}

void CVBookmarksToolWidgetPrivate::deleteBookmark()
{
    removeContextItem();
}

void CVBookmarksToolWidgetPrivate::removeContextItem()
{
    if (m_contextIndex.isValid())
        m_model->removeBookmark(contextItem());
}

void CVBookmarksToolWidgetPrivate::bookmarkSelected(const QModelIndex &index)
{
    const BookmarkItem *item = m_model->itemFromIndex(index);
    if (!item)
        return;
    if (item->isFolder())
        openFolder(*item);
    else
        m_plugin->showNewsgroup(*item);
}

void CVBookmarksToolWidgetPrivate::openFolder(const BookmarkItem &folder)
{
    QList<Newsgroup> newsgroups;
    for (const BookmarkItem *child : folder.children()) {
        if (!child->isFolder())
            newsgroups.append(Newsgroup(child->name()));
    }
    m_plugin->showNewsgroups(folder.name(), newsgroups, HIndex::mediaCategoryToFacet(folderCategory));
}

void CVBookmarksToolWidgetPrivate::itemCollapsed(const QModelIndex &index)
{
    m_model->setFolderExpanded(index, false);
}

void CVBookmarksToolWidgetPrivate::itemExpanded(const QModelIndex &index)
{
    m_model->setFolderExpanded(index, true);
}

void CVBookmarksToolWidgetPrivate::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
