// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "person.h"

#include <QModelIndex>

class QTreeView;
class Stage;

/// The bookmarks panel as it is on the screen, and what is in its file. Items are told by their whole names,
/// which are looked for in the folder @p folder or, when that is empty, at the top. Spots and the stories of
/// a person are for the person's thread, everything else is for the GUI thread.
class BookmarkPanel {
public:
    explicit BookmarkPanel(Stage &stage);

    /// Logs the account "demo" in and waits for its bookmarks.
    void logIn(Person &person) const;
    /// Opens or closes a folder by its arrow.
    void unfold(Person &person, const QString &folder) const;
    void fold(Person &person, const QString &folder) const;
    /// Waits until the folder has exactly these items, in this order, on the screen and in the file.
    void expect(Person &person, const QString &folder, const QStringList &names) const;

    /// A row; @p part is where in it, from 0 (its upper edge) to 1.
    Spot row(const QString &folder, const QString &name, double part = 0.5) const;
    Spot folder(const QString &name, double part = 0.5) const;
    /// Below the last row.
    Spot emptyArea() const;

    QTreeView *view() const;
    QModelIndex index(const QString &folder, const QString &name) const;
    QStringList names(const QString &folder) const;
    bool isUnfolded(const QString &folder) const;
    /// The whole name of the current item.
    QString current() const;
    bool isBeingRenamed() const;
    /// What the file says: the names in the folder by their order, and a column of an item's row.
    QStringList storedNames(const QString &folder) const;
    QString stored(const QString &name, const QString &column) const;

private:
    Spot arrow(const QString &folder) const;
    QList<QStringList> query(const QString &statement, const QStringList &values) const;

    Stage &m_stage;
};
