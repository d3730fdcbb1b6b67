// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/extendedtreeview.h>

/// The list of newsgroups as it is seen: where there is little room the descriptions give way to the names.
class NewsgroupListView final : public ExtendedTreeView {
    Q_OBJECT
public:
    explicit NewsgroupListView(QWidget *parent);

    void setModel(QAbstractItemModel *model) override;

Q_SIGNALS:
    /// The current newsgroup is to be opened: a double click, or the Return key.
    void openRequested();

protected:
    QStyleOptionViewItem viewOptions() const override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void arrangeColumns();
};
