// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "hnewsgroupspanel.h"

#include "loadline.h"
#include "newsgrouplist.h"
#include "newsgrouplistmodel.h"
#include "newsgrouplistview.h"
#include "selectionkeeper.h"

#include <halvora/bookmarkprovider.h>
#include <halvora/connectorplugin.h>
#include <halvora/core.h>
#include <halvora/hindex.h>
#include <halvora/newsgroup.h>
#include <halvora/pluginmanager.h>

#include <QAction>
#include <QIcon>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

QAction *makeAction(QObject *parent, const char *name, const char *icon)
{
    auto *action = new QAction(parent);
    action->setObjectName(QLatin1String(name));
    action->setIcon(QIcon(QLatin1String(":/icons/") + QLatin1String(icon)));
    return action;
}

QToolButton *makeButton(QWidget *parent, const char *name, QAction *action)
{
    auto *button = new QToolButton(parent);
    button->setObjectName(QLatin1String(name));
    button->setDefaultAction(action);
    button->setFocusPolicy(Qt::StrongFocus); // a tool bar's buttons can not be reached with Tab
    return button;
}

} // namespace

HNewsgroupsPanel::HNewsgroupsPanel(ConnectorPlugin *plugin, QWidget *parent)
    : FancyDockWidget(parent)
    , m_plugin(plugin)
    , m_list(new NewsgroupList(plugin, this))
    , m_model(new NewsgroupListModel(this))
    , m_open(makeAction(this, "openNewsgroup", "newsgroup.svg"))
    , m_add(makeAction(this, "addBookmarks", "bookmark-add.svg"))
    , m_refresh(makeAction(this, "refreshNewsgroups", "refresh.svg"))
{
    build();
    setObjectName(QStringLiteral("NewsgroupsDock"));
    setFeatures(DockWidgetMovable | DockWidgetFloatable);
    connectParts();
    retranslate();
    followPalette();
    followBookmarks();
    updateActions();
}

HNewsgroupsPanel::~HNewsgroupsPanel() = default;

void HNewsgroupsPanel::build()
{
    auto *content = new QWidget(this);
    m_filter = new QLineEdit(content);
    m_filter->setObjectName(QStringLiteral("newsgroupFilter"));
    m_filter->setClearButtonEnabled(true);
    m_filter->installEventFilter(this);
    m_refreshButton = makeButton(content, "refreshButton", m_refresh);
    m_refreshButton->setAutoRaise(true);
    m_view = new NewsgroupListView(content);
    m_view->setObjectName(QStringLiteral("newsgroupList"));
    m_view->setModel(m_model);
    m_line = new LoadLine(QBoxLayout::TopToBottom, content);
    m_addButton = makeButton(content, "addButton", m_add);
    m_addButton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);

    auto *top = new QHBoxLayout;
    top->setSpacing(4);
    top->addWidget(m_filter, 1);
    top->addWidget(m_refreshButton);
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(6);
    layout->addLayout(top);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_line);
    layout->addWidget(m_addButton, 0, Qt::AlignLeft);
    setWidget(content);
    setFocusProxy(m_filter);
}

void HNewsgroupsPanel::connectParts()
{
    connect(m_filter, &QLineEdit::textChanged, this, &HNewsgroupsPanel::applyFilter);
    connect(m_view, &NewsgroupListView::openRequested, this, &HNewsgroupsPanel::openCurrent);
    connect(m_view, &QWidget::customContextMenuRequested, this, &HNewsgroupsPanel::showMenu);
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &HNewsgroupsPanel::updateActions);
    connect(m_open, &QAction::triggered, this, &HNewsgroupsPanel::openCurrent);
    connect(m_add, &QAction::triggered, this, &HNewsgroupsPanel::addBookmarks);
    connect(m_refresh, &QAction::triggered, m_list, &NewsgroupList::refresh);
    connect(m_line, &LoadLine::tryAgainRequested, m_list, &NewsgroupList::refresh);
    connect(m_list, &NewsgroupList::contentsChanged, this, &HNewsgroupsPanel::takeContents);
    connect(m_list, &NewsgroupList::stateChanged, this, &HNewsgroupsPanel::updateLine);
    connect(m_list, &NewsgroupList::stateChanged, this, &HNewsgroupsPanel::updateActions);
}

// From the field, the keys that look for a place in a list go to the list.
bool HNewsgroupsPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_filter || event->type() != QEvent::KeyPress)
        return FancyDockWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Down && key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    if (m_model->rowCount() > 0) {
        if (!m_view->currentIndex().isValid())
            m_view->setCurrentIndex(m_model->index(0, 0));
        m_view->setFocus(Qt::TabFocusReason);
    }
    return true;
}

void HNewsgroupsPanel::showEvent(QShowEvent *event)
{
    followBookmarks();
    m_list->load();
    FancyDockWidget::showEvent(event);
}

void HNewsgroupsPanel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::PaletteChange)
        followPalette();
    FancyDockWidget::changeEvent(event);
}

// A palette that was made of a few colours has a black placeholder, whatever is behind it.
void HNewsgroupsPanel::followPalette()
{
    QColor faint = palette().color(QPalette::Text);
    faint.setAlpha(150);
    QPalette own;
    own.setColor(QPalette::PlaceholderText, faint);
    m_filter->setPalette(own);
}

// A provider may register after the panel was made.
void HNewsgroupsPanel::followBookmarks()
{
    m_model->setBookmarks(m_plugin->core()->plugin()->bookmarkProvider());
}

QStringList HNewsgroupsPanel::selectedNames() const
{
    return m_model->names(m_view->selectionModel()->selectedRows());
}

void HNewsgroupsPanel::applyFilter()
{
    {
        const SelectionKeeper keeper(*m_view, *m_model);
        m_model->setFilter(m_filter->text());
    }
    updateActions();
    updateLine();
}

void HNewsgroupsPanel::forgetList()
{
    m_list->forget();
}

void HNewsgroupsPanel::takeContents()
{
    followBookmarks();
    {
        const SelectionKeeper keeper(*m_view, *m_model);
        m_model->setTable(m_list->contents().table);
    }
    updateActions();
}

void HNewsgroupsPanel::openCurrent()
{
    const QModelIndex current = m_view->currentIndex();
    if (current.isValid())
        m_plugin->showNewsgroupPanel(Newsgroup(m_model->name(current.row())), HIndex::ListView,
                                     HIndex::AnyFacet);
}

void HNewsgroupsPanel::addBookmarks()
{
    BookmarkProvider *provider = m_plugin->core()->plugin()->bookmarkProvider();
    const QStringList names = selectedNames();
    if (provider && !names.isEmpty())
        provider->addBookmarks(names);
}

void HNewsgroupsPanel::showMenu(const QPoint &position)
{
    auto *menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("newsgroupMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(m_open);
    menu->addAction(m_add);
    menu->addSeparator();
    menu->addAction(m_refresh);
    menu->setDefaultAction(m_open);
    menu->popup(m_view->viewport()->mapToGlobal(position));
}

void HNewsgroupsPanel::updateActions()
{
    const bool hasSelection = m_view->selectionModel()->hasSelection();
    m_open->setEnabled(m_view->currentIndex().isValid() && hasSelection);
    m_add->setEnabled(hasSelection && m_plugin->core()->plugin()->bookmarkProvider());
    m_refresh->setEnabled(m_list->state() != NewsgroupList::Loading &&
                          m_list->state() != NewsgroupList::Reading && !m_list->isLoginMissing());
}
