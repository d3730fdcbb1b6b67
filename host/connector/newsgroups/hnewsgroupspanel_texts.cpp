// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "hnewsgroupspanel.h"

#include "loadline.h"
#include "newsgrouplist.h"
#include "newsgrouplistmodel.h"
#include "newsgrouplistview.h"

#include <halvora/stringformat.h>

#include <QAction>
#include <QLineEdit>
#include <QLocale>

void HNewsgroupsPanel::updateLine()
{
    const int progress = m_list->progress();
    switch (m_list->state()) {
    case NewsgroupList::Failed:
        m_line->showProblem(m_list->message(), summary());
        break;
    case NewsgroupList::Idle:
        m_line->showSummary(summary());
        break;
    case NewsgroupList::Reading:
    case NewsgroupList::Loading:
        if (!m_list->message().isEmpty())
            m_line->showProgress(m_list->message());
        else if (progress > 0)
            m_line->showProgress(tr("%Ln newsgroups loaded…", nullptr, progress));
        else
            m_line->showProgress(tr("Loading the newsgroups…"));
        break;
    }
    const QDateTime fetched = m_list->contents().fetched;
    m_line->setToolTip(fetched.isValid()
                           ? tr("As of %1").arg(StringFormat::dateTime(fetched, StringFormat::ShortDateTime))
                           : QString());
}

QString HNewsgroupsPanel::summary() const
{
    const int count = m_model->table().count();
    if (count > 0)
        return tr("%1 of %Ln newsgroups", nullptr, count).arg(QLocale().toString(m_model->rowCount()));
    if (m_list->isLoginMissing())
        return tr("Log in to load the newsgroups.");
    return m_list->contents().fetched.isValid() ? tr("The news server has no newsgroups.") : QString();
}

void HNewsgroupsPanel::retranslate()
{
    setWindowTitle(tr("Newsgroups"));
    m_filter->setPlaceholderText(tr("Filter by words"));
    m_filter->setAccessibleName(tr("Filter newsgroups"));
    m_view->setAccessibleName(tr("Newsgroups"));
    m_open->setText(tr("Open"));
    m_add->setText(tr("Add to bookmarks…"));
    m_refresh->setText(tr("Refresh"));
    m_refresh->setToolTip(tr("Load the list of newsgroups again"));
    m_model->retranslate();
    updateLine();
}
