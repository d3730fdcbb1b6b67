// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "mainmenu.h"

#include <halvora/core.h>

#include "viewmenu.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

namespace {

// Not every desktop has a usual key for these.
void setShortcut(QAction *action, QKeySequence::StandardKey usual, const QKeySequence &otherwise)
{
    const QList<QKeySequence> keys = QKeySequence::keyBindings(usual);
    action->setShortcuts(keys.isEmpty() ? QList<QKeySequence>{otherwise} : keys);
}

} // namespace

MainMenu::MainMenu(Core *core, QMainWindow *window)
    : QObject(window)
    , m_program(addMenu(window, "halvora.programMenu"))
    , m_account(addMenu(window, "halvora.accountMenu"))
    , m_view(new ViewMenu(window))
{
    window->menuBar()->setObjectName(QStringLiteral("halvora.menuBar"));
    window->menuBar()->addMenu(m_view);
    m_help = addMenu(window, "halvora.helpMenu");
    fillProgramMenu();
    fillAccountMenu();
    fillHelpMenu(core);
    setLoginPossible(true, false);
    retranslate();
}

QMenu *MainMenu::addMenu(QMainWindow *window, const char *name)
{
    QMenu *menu = window->menuBar()->addMenu(QString());
    menu->setObjectName(QLatin1String(name));
    return menu;
}

QAction *MainMenu::addEntry(QMenu *menu, const char *name, const char *icon)
{
    QAction *action = menu->addAction(QString());
    action->setObjectName(QLatin1String(name));
    if (icon)
        action->setIcon(QIcon(QLatin1String(icon)));
    return action;
}

void MainMenu::fillProgramMenu()
{
    m_open = addEntry(m_program, "halvora.open", ":/icons/open.svg");
    setShortcut(m_open, QKeySequence::Open, QKeySequence(QStringLiteral("Ctrl+O")));
    connect(m_open, &QAction::triggered, this, &MainMenu::fileRequested);
    m_program->addSeparator();
    m_settings = addEntry(m_program, "halvora.settings", ":/icons/settings.svg");
    m_settings->setMenuRole(QAction::PreferencesRole);
    setShortcut(m_settings, QKeySequence::Preferences, QKeySequence(QStringLiteral("Ctrl+,")));
    connect(m_settings, &QAction::triggered, this, &MainMenu::settingsRequested);
    m_program->addSeparator();
    m_quit = addEntry(m_program, "halvora.quit", ":/icons/quit.svg");
    m_quit->setMenuRole(QAction::QuitRole);
    setShortcut(m_quit, QKeySequence::Quit, QKeySequence(QStringLiteral("Ctrl+Q")));
    connect(m_quit, &QAction::triggered, this, &MainMenu::quitRequested);
}

void MainMenu::fillAccountMenu()
{
    m_login = addEntry(m_account, "halvora.login", ":/icons/login.svg");
    connect(m_login, &QAction::triggered, this, &MainMenu::loginRequested);
    m_logout = addEntry(m_account, "halvora.logout", ":/icons/logout.svg");
    connect(m_logout, &QAction::triggered, this, &MainMenu::logoutRequested);
}

void MainMenu::fillHelpMenu(Core *core)
{
    m_report = addEntry(m_help, "halvora.report", ":/icons/report.svg");
    m_report->setVisible(core->isErrorReportVisible());
    connect(core, &Core::errorReportVisibleChanged, m_report, &QAction::setVisible);
    connect(m_report, &QAction::triggered, this, &MainMenu::reportRequested);
    m_help->addSeparator();
    m_aboutQt = addEntry(m_help, "halvora.aboutQt", nullptr);
    m_aboutQt->setMenuRole(QAction::AboutQtRole);
    connect(m_aboutQt, &QAction::triggered, qApp, &QApplication::aboutQt);
}

void MainMenu::setAboutAction(QAction *action)
{
    if (m_about)
        m_help->removeAction(m_about);
    m_about = action;
    if (m_about)
        m_help->insertAction(m_aboutQt, m_about);
}

void MainMenu::setLoginPossible(bool canLogIn, bool canLogOut)
{
    m_login->setEnabled(canLogIn);
    m_logout->setEnabled(canLogOut);
}

void MainMenu::retranslate()
{
    m_program->setTitle(tr("Ha&lvora"));
    m_open->setText(tr("&Open NZB File…"));
    m_settings->setText(tr("&Settings…"));
    m_quit->setText(tr("&Quit"));
    m_account->setTitle(tr("&Account"));
    m_login->setText(tr("Log &In…"));
    m_logout->setText(tr("Log &Out"));
    m_view->retranslate();
    m_help->setTitle(tr("&Help"));
    m_report->setText(tr("Save a &Report…"));
    m_aboutQt->setText(tr("About &Qt"));
}
