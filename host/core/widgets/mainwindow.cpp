// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/mainwindow.h>

#include <halvora/core.h>

#include "mainmenu.h"
#include "pagearea.h"
#include "statusline.h"
#include "updatenotice.h"
#include "viewmenu.h"
#include "windowlayout.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QIcon>
#include <QMimeData>
#include <QUrl>

namespace {

QIcon programIcon()
{
    QIcon icon;
    for (const int size : {16, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/app/icon/%1x%1.png").arg(size));
    return icon;
}

bool isArea(Qt::DockWidgetArea area)
{
    return area == Qt::LeftDockWidgetArea || area == Qt::RightDockWidgetArea ||
           area == Qt::TopDockWidgetArea || area == Qt::BottomDockWidgetArea;
}

// Empty unless it is one local NZB file and nothing else.
QString nzbFile(const QMimeData &data)
{
    const QList<QUrl> urls = data.urls();
    const QString path = urls.size() == 1 ? urls.constFirst().toLocalFile() : QString();
    return path.endsWith(QLatin1String(".nzb"), Qt::CaseInsensitive) ? path : QString();
}

} // namespace

MainWindow::MainWindow(Core *core, QWidget *parent)
    : QMainWindow(parent)
    , m_menu(new MainMenu(core, this))
    , m_notice(new UpdateNotice(this))
    , m_status(new StatusLine(core->traffic(), this))
    , m_pages(new PageArea(this))
    , m_layout(std::make_unique<WindowLayout>(this, core->settings()))
{
    setObjectName(QStringLiteral("halvora.mainWindow"));
    setAcceptDrops(true);
    setWindowIcon(programIcon());
    addToolBar(Qt::TopToolBarArea, m_notice);
    m_notice->hide();
    setStatusBar(m_status);
    setCentralWidget(m_pages);
    connectMenu();
    connect(core, &Core::softwareUpdateOffered, m_notice, &UpdateNotice::offer);
    connect(m_notice, &UpdateNotice::linkRequested, this, &MainWindow::linkRequested);
}

MainWindow::~MainWindow() = default;

void MainWindow::connectMenu()
{
    connect(m_menu, &MainMenu::loginRequested, this, &MainWindow::loginRequested);
    connect(m_menu, &MainMenu::logoutRequested, this, &MainWindow::logoutRequested);
    connect(m_menu, &MainMenu::settingsRequested, this, &MainWindow::settingsRequested);
    connect(m_menu, &MainMenu::fileRequested, this, &MainWindow::fileRequested);
    connect(m_menu, &MainMenu::reportRequested, this, &MainWindow::reportRequested);
    connect(m_menu, &MainMenu::quitRequested, this, &QWidget::close);
    connect(m_menu->view(), &ViewMenu::resetRequested, this, [this] { m_layout->reset(); });
}

void MainWindow::addToolWidget(Qt::DockWidgetArea area, QDockWidget *dock)
{
    if (!dock)
        return;
    // Without a name of its own a panel would not come back to its place.
    ++m_docks;
    if (dock->objectName().isEmpty())
        dock->setObjectName(QStringLiteral("halvora.dock%1").arg(m_docks));
    addDockWidget(isArea(area) ? area : Qt::LeftDockWidgetArea, dock);
    m_menu->view()->addDock(dock);
}

void MainWindow::setNewsgroupsPanel(QDockWidget *panel)
{
    m_newsgroupsPanel = panel;
    addToolWidget(Qt::RightDockWidgetArea, panel);
}

void MainWindow::showNewsgroupsPanel()
{
    if (!m_newsgroupsPanel)
        return;
    m_newsgroupsPanel->show();
    m_newsgroupsPanel->raise();
    m_newsgroupsPanel->activateWindow(); // it may float
    m_newsgroupsPanel->setFocus();
}

void MainWindow::setHomePage(QWidget *page)
{
    m_pages->setHome(page);
}

void MainWindow::openPage(QWidget *page)
{
    m_pages->open(page);
}

QWidget *MainWindow::findPage(const QString &name) const
{
    return m_pages->find(name);
}

void MainWindow::setAboutAction(QAction *action)
{
    m_menu->setAboutAction(action);
}

void MainWindow::setLoginPossible(bool canLogIn, bool canLogOut)
{
    m_menu->setLoginPossible(canLogIn, canLogOut);
}

void MainWindow::setOnlineState(int state, const QString &text)
{
    m_status->setOnlineState(state, text);
}

void MainWindow::showNotice(const QString &sentence)
{
    m_status->showNotice(sentence);
}

void MainWindow::showLastingNotice(const QString &sentence)
{
    m_status->showLastingNotice(sentence);
}

void MainWindow::restorePlace()
{
    m_layout->restorePlace();
}

void MainWindow::restoreLayout()
{
    // The notice is a tool bar to Qt, and would come and go with the saved arrangement.
    const bool told = !m_notice->isHidden();
    m_layout->restore();
    m_notice->setVisible(told);
}

void MainWindow::bringToFront()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

QMenu *MainWindow::createPopupMenu()
{
    auto *menu = new QMenu(this);
    menu->addActions(m_menu->view()->dockActions());
    return menu;
}

void MainWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        m_menu->retranslate();
    QMainWindow::changeEvent(event);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    m_layout->save();
    Q_EMIT closing();
    QMainWindow::closeEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    // A file is read, never moved, whatever the other program would like.
    if (nzbFile(*event->mimeData()).isEmpty() || !event->possibleActions().testFlag(Qt::CopyAction))
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void MainWindow::dropEvent(QDropEvent *event)
{
    const QString path = nzbFile(*event->mimeData());
    if (path.isEmpty())
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    Q_EMIT fileDropped(path);
}
