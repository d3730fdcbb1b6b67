// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QStringList>

class CVBookmarkManager;
class ExtendedTreeView;
class QDialogButtonBox;
class QLabel;

/// Asks where bookmarks go and adds them there: in the folder chosen, or behind the bookmark chosen. Without
/// a choice OK does nothing. GUI thread.
class CVAddBookmarksDialog final : public QDialog {
    Q_OBJECT
public:
    /// @p model outlives the dialog.
    explicit CVAddBookmarksDialog(CVBookmarkManager *model, QWidget *parent = nullptr);

    void setNewsgroups(const QStringList &newsgroups);

public Q_SLOTS:
    /// Adds the bookmarks at the current item and closes the dialog.
    void save();

protected:
    void changeEvent(QEvent *event) override;

private:
    void retranslate();

    QStringList m_newsgroups;
    CVBookmarkManager *const m_model;
    QLabel *m_label;
    ExtendedTreeView *m_tree;
    QDialogButtonBox *m_buttons;
};
