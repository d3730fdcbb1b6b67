// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "person.h"

#include <QModelIndex>

class QAbstractItemView;
class QDialog;
class Stage;

/// The list of newsgroups at the right, the pages in the middle and the dialog that asks where bookmarks go.
/// Spots and what a person does are for the person's thread, everything else is for the GUI thread.
class NewsgroupsPanel {
public:
    explicit NewsgroupsPanel(Stage &stage);

    /// Waits for the list, types into its filter and waits until @p name is among what is left.
    void lookFor(Person &person, const QString &words, const QString &name) const;
    Spot row(const QString &name) const;

    bool isInFront() const;
    bool isFilterFocused() const;
    QAbstractItemView *view() const;

    /// What the tab of the page in front says.
    QString pageTitle() const;
    QStringList pageTitles() const;
    /// The newsgroup's or folder's articles in front; 0 while there are none yet.
    int articles() const;

    /// The dialog, or null.
    QDialog *dialog() const;
    /// What is picked in the dialog; empty for nothing.
    QString dialogChoice() const;
    Spot dialogRow(const QString &name) const;
    Spot dialogButton(const QString &text) const;

private:
    Stage &m_stage;
};
