// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/cvbookmarkmanager.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/bookmarkwriter.h"
#include "bookmarks/cvbookmarkprovider.h"
#include "connector/cvconnectorplugin.h"
#include "requests/cvbookmarksrequest.h"

#include <halvora/connector.h>
#include <halvora/core.h>
#include <halvora/hpixmaps.h>
#include <halvora/settingsregistry.h>

#include <QTimer>

namespace {

constexpr int iconSize = 16; // device-independent pixels
constexpr int rowSize = 20;

} // namespace

CVBookmarkManager::CVBookmarkManager(CVConnectorPlugin *plugin)
    : m_core(plugin->core())
    , m_connector(plugin->connector())
    , m_provider(new CVBookmarkProvider(this, plugin))
    , m_writer(std::make_unique<BookmarkWriter>())
{
    qRegisterMetaType<HServer::State>("HServer::State");
    openDatabase(plugin->configName());
    connect(m_connector->server(), &HServer::stateChanged, this, &CVBookmarkManager::connectorStateChanged);
    readOptions();
    m_core->settingsRegistry()->registerSettings(this);
    const QStringList colors = folderColorNames();
    for (const QString &color : colors)
        m_folderIcons[color] = QIcon(QStringLiteral(":/corvia/bookmarks/folder_%1.svg").arg(color));
    m_newsgroupPixmap = hSvgPixmap(QStringLiteral(":/corvia/bookmarks/newsgroup_default.svg"), iconSize);
    QTimer::singleShot(0, this, &CVBookmarkManager::load);
}

CVBookmarkManager::~CVBookmarkManager()
{
    qDeleteAll(m_topLevel);
    closeDatabase();
}

CVBookmarkProvider *CVBookmarkManager::provider() const
{
    return m_provider;
}

BookmarkItem *CVBookmarkManager::itemFromIndex(const QModelIndex &index) const
{
    // An index that is not valid may have a pointer all the same.
    auto *item = index.isValid() ? static_cast<BookmarkItem *>(index.internalPointer()) : nullptr;
    if (item)
        loadChildren(item);
    return item;
}

BookmarkItem *CVBookmarkManager::bookmarkFromIndex(const QModelIndex &index) const
{
    BookmarkItem *item = itemFromIndex(index);
    return item && !item->isFolder() ? item : nullptr;
}

const QList<BookmarkItem *> &CVBookmarkManager::siblings(const BookmarkItem *parent) const
{
    return parent ? parent->children() : m_topLevel;
}

QModelIndex CVBookmarkManager::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const BookmarkItem *item = itemFromIndex(parent);
    return createIndex(row, column, item ? item->child(row) : m_topLevel.at(row));
}

QModelIndex CVBookmarkManager::parent(const QModelIndex &index) const
{
    const BookmarkItem *item = itemFromIndex(index);
    BookmarkItem *folder = item ? item->parent() : nullptr;
    if (!folder)
        return {};
    return createIndex(siblings(folder->parent()).indexOf(folder), 0, folder);
}

int CVBookmarkManager::rowCount(const QModelIndex &parent) const
{
    const BookmarkItem *item = itemFromIndex(parent);
    if (!item)
        return m_topLevel.size();
    return item->isFolder() ? item->children().size() : 0;
}

int CVBookmarkManager::columnCount(const QModelIndex &parent) const
{
    Q_UNUSED(parent)
    return 1;
}

QVariant CVBookmarkManager::data(const QModelIndex &index, int role) const
{
    const BookmarkItem *item = itemFromIndex(index);
    if (!item)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        if (index.column() != 0)
            return {};
        return item->isFolder() ? item->name() : item->tinyName();
    case Qt::EditRole:
    case Qt::ToolTipRole:
        return item->name();
    case Qt::DecorationRole:
        return index.column() == 0 ? QVariant(decoration(*item)) : QVariant();
    case Qt::TextAlignmentRole:
        return index.column() == 1 || index.column() == 2 ? QVariant(int(Qt::AlignRight | Qt::AlignVCenter))
                                                          : QVariant();
    case Qt::SizeHintRole:
        return QSize(rowSize, rowSize);
    default:
        return {};
    }
}

QPixmap CVBookmarkManager::decoration(const BookmarkItem &item) const
{
    if (!item.isFolder())
        return m_newsgroupPixmap;
    const QString color = m_folderIcons.contains(item.color()) ? item.color() : QStringLiteral("yellow");
    return m_folderIcons.value(color).pixmap(QSize(iconSize, iconSize), QIcon::Normal, QIcon::Off);
}

bool CVBookmarkManager::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const QString name = value.toString();
    if (!index.isValid() || role != Qt::EditRole || name.isEmpty())
        return false;
    BookmarkItem *item = itemFromIndex(index);
    item->setName(name);
    saveItem(item);
    Q_EMIT dataChanged(index, index);
    return true;
}

QVariant CVBookmarkManager::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section == 0 && orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return tr("Name");
    return QAbstractItemModel::headerData(section, orientation, role);
}

Qt::ItemFlags CVBookmarkManager::flags(const QModelIndex &index) const
{
    const BookmarkItem *item = itemFromIndex(index);
    if (!item)
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    if (index.column() != 0)
        return flags;
    flags |= Qt::ItemIsDragEnabled;
    if (item->isFolder())
        flags |= Qt::ItemIsEditable | Qt::ItemIsDropEnabled;
    return flags;
}

bool CVBookmarkManager::removeRows(int row, int count, const QModelIndex &parent)
{
    BookmarkItem *folder = itemFromIndex(parent);
    const int removed = row < 0 ? 0 : qMin(count, rowCount(parent) - row);
    if (removed < 1)
        return true;
    beginRemoveRows(parent, row, row + removed - 1);
    if (folder) {
        folder->removeChildren(row, removed);
    } else {
        for (int left = removed; left > 0; --left)
            delete m_topLevel.takeAt(row);
    }
    m_writer->listChanged();
    endRemoveRows();
    return true;
}
