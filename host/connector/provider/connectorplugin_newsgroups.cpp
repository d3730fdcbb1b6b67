// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/connectorplugin.h>

#include "articles/hnewsgrouppanel.h"
#include "newsgroups/hnewsgroupspanel.h"

#include <halvora/core.h>
#include <halvora/mainwindow.h>
#include <halvora/newsgroup.h>

void ConnectorPlugin::polish(MainWindow *window)
{
    m_newsgroups = new HNewsgroupsPanel(this, window);
    window->setNewsgroupsPanel(m_newsgroups);
}

void ConnectorPlugin::forgetNewsgroups()
{
    if (m_newsgroups)
        m_newsgroups->forgetList();
}

void ConnectorPlugin::showNewsgroupPanel(const Newsgroup &newsgroup, HIndex::MediaView view,
                                         HIndex::MediaFacet facet)
{
    showNewsgroupPanel(newsgroup.name(), {newsgroup}, view, facet);
}

// There is one view so far.
void ConnectorPlugin::showNewsgroupPanel(const QString &title, const QList<Newsgroup> &newsgroups,
                                         HIndex::MediaView view, HIndex::MediaFacet facet)
{
    Q_UNUSED(view)
    MainWindow *window = m_core->mainWindow();
    if (!window)
        return;
    const QString name = HNewsgroupPanel::pageName(title, newsgroups);
    auto *page = qobject_cast<HNewsgroupPanel *>(window->findPage(name));
    if (page) {
        // Whoever comes back finds the page as it was left; it has a button of its own to load it again.
        page->reloadAfterFailure();
    } else {
        page = new HNewsgroupPanel(this, title, newsgroups);
        page->setFacet(facet);
    }
    window->openPage(page);
}
