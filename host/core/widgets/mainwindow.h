// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QMainWindow>
#include <QPointer>

#include <memory>

class Core;
class MainMenu;
class PageArea;
class QAction;
class StatusLine;
class UpdateNotice;
class WindowLayout;

/// The window of the program: menus, panels, status bar and a bar that tells of a newer version. It asks for
/// everything that it cannot do itself by a signal. Its place, size and panels are kept in the program's
/// settings. GUI thread.
class HALVORA_CORE_EXPORT MainWindow : public QMainWindow {
    Q_OBJECT
public:
    enum OnlineState { Offline, Connecting, Connected, Lost };

    /// @p core outlives the window.
    explicit MainWindow(Core *core, QWidget *parent = nullptr);
    ~MainWindow() override;
    Q_DISABLE_COPY(MainWindow)

    /// Takes @p dock over, puts it at @p area (at the left if that is no area) and gives it an entry in the
    /// View menu, which can hide and show it whatever its features are.
    void addToolWidget(Qt::DockWidgetArea area, QDockWidget *dock);
    /// Takes over the panel in which newsgroups are chosen and puts it at the right; whoever makes the
    /// program's connections offers it. The one before, if any, stays a panel like others.
    void setNewsgroupsPanel(QDockWidget *panel);
    /// Takes @p page over and shows it in the middle of the window. It stays there behind the others and can
    /// not be closed.
    void setHomePage(QWidget *page);
    /// Takes @p page over and shows it in the middle of the window, under its windowTitle(); a page that is
    /// there already comes to the front. A person who closes it destroys it.
    void openPage(QWidget *page);
    /// The page of this object name, or null.
    QWidget *findPage(const QString &name) const;
    /// The provider's entry in the Help menu instead of the one before; null for none. Not owned.
    void setAboutAction(QAction *action);
    /// Which of the two entries of the Account menu can be chosen.
    void setLoginPossible(bool canLogIn, bool canLogOut);

    /// @p state is an OnlineState. An empty @p text stands for the usual word.
    void setOnlineState(int state, const QString &text = QString());
    /// Tells one sentence in the status bar, for 30 seconds or until the next one. Plain text.
    void showNotice(const QString &sentence);
    /// Tells in the status bar, in a colour of its own, what is wrong until it is put right; an empty @p
    /// sentence when it is. Plain text.
    void showLastingNotice(const QString &sentence);

    /// Goes back to the place and size of the last run, for a window that is shown before its panels.
    void restorePlace();
    /// Goes back to the place, size and panels of the last run; to be called when all panels were added. A
    /// window that is closed before leaves what is kept as it is.
    void restoreLayout();
    /// Shows the window before all others, as far as the desktop lets a program do that.
    void bringToFront();

    /// The entries for the panels, as the View menu has them.
    QMenu *createPopupMenu() override;

public Q_SLOTS:
    /// Shows the panel in which newsgroups are chosen, ready to be typed in; nothing happens when there is
    /// none.
    void showNewsgroupsPanel();

Q_SIGNALS:
    void loginRequested();
    void logoutRequested();
    void settingsRequested();
    void reportRequested();
    /// A person wants to choose a file to open.
    void fileRequested();
    /// A person dropped a local NZB file on the window.
    void fileDropped(const QString &path);
    /// A person wants to see @p url, which is http or https and names a host.
    void linkRequested(const QUrl &url);
    /// The window is about to close; its layout has been saved.
    void closing();

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void connectMenu();

    MainMenu *m_menu;
    UpdateNotice *m_notice;
    StatusLine *m_status;
    PageArea *m_pages;
    QPointer<QDockWidget> m_newsgroupsPanel;
    std::unique_ptr<WindowLayout> m_layout;
    int m_docks = 0;
};
