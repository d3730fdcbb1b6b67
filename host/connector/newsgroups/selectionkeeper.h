// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class NewsgroupListModel;
class QAbstractItemView;

/// Brings the selected newsgroups and the current one back when the list was made anew in its lifetime, as
/// far as they are still there. GUI thread.
class SelectionKeeper {
public:
    SelectionKeeper(QAbstractItemView &view, const NewsgroupListModel &model);
    ~SelectionKeeper();
    Q_DISABLE_COPY(SelectionKeeper)

private:
    int rowOf(const QString &name) const;

    QAbstractItemView &m_view;
    const NewsgroupListModel &m_model;
    QStringList m_selected;
    QString m_current;
};
