// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

class Core;
class QAction;
class QMainWindow;
class QMenu;
class ViewMenu;

/// The menu bar of the main window.
class MainMenu final : public QObject {
    Q_OBJECT
public:
    MainMenu(Core *core, QMainWindow *window);

    ViewMenu *view() const { return m_view; }
    void setAboutAction(QAction *action);
    void setLoginPossible(bool canLogIn, bool canLogOut);
    void retranslate();

Q_SIGNALS:
    void fileRequested();
    void loginRequested();
    void logoutRequested();
    void settingsRequested();
    void reportRequested();
    void quitRequested();

private:
    QMenu *addMenu(QMainWindow *window, const char *name);
    QAction *addEntry(QMenu *menu, const char *name, const char *icon);
    void fillProgramMenu();
    void fillAccountMenu();
    void fillHelpMenu(Core *core);

    QMenu *m_program;
    QMenu *m_account;
    ViewMenu *m_view;
    QMenu *m_help = nullptr;
    QAction *m_open = nullptr;
    QAction *m_settings = nullptr;
    QAction *m_quit = nullptr;
    QAction *m_login = nullptr;
    QAction *m_logout = nullptr;
    QAction *m_report = nullptr;
    QAction *m_aboutQt = nullptr;
    QPointer<QAction> m_about;
};
