// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/fancydockwidget.h>

class ConnectorPlugin;
class LoadLine;
class NewsgroupList;
class NewsgroupListModel;
class NewsgroupListView;
class QAction;
class QLineEdit;
class QToolButton;

/// The panel in which a person looks for newsgroups among all that the news server has, opens them and
/// bookmarks them. It loads nothing before it is first shown. GUI thread.
class HNewsgroupsPanel final : public FancyDockWidget {
    Q_OBJECT
public:
    /// @p plugin outlives the panel.
    HNewsgroupsPanel(ConnectorPlugin *plugin, QWidget *parent);
    ~HNewsgroupsPanel() override;

    /// Empties the panel and deletes the list that is kept for the next start.
    void forgetList();

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void build();
    void connectParts();
    QStringList selectedNames() const;
    void applyFilter();
    void takeContents();
    void followPalette();
    void followBookmarks();
    void openCurrent();
    void addBookmarks();
    void showMenu(const QPoint &position);
    void updateActions();
    void updateLine();
    QString summary() const;
    void retranslate();

    ConnectorPlugin *const m_plugin;
    NewsgroupList *m_list;
    NewsgroupListModel *m_model;
    QLineEdit *m_filter;
    QToolButton *m_refreshButton;
    NewsgroupListView *m_view;
    LoadLine *m_line;
    QToolButton *m_addButton;
    QAction *m_open;
    QAction *m_add;
    QAction *m_refresh;
};
