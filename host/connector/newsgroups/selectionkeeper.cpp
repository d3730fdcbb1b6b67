// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "selectionkeeper.h"

#include "newsgrouplistmodel.h"

#include <QAbstractItemView>
#include <QItemSelectionModel>

namespace {

constexpr int most = 1000; // nobody picked more one by one

int selectedRows(const QItemSelection &selection)
{
    int rows = 0;
    for (const QItemSelectionRange &range : selection)
        rows += range.height();
    return rows;
}

} // namespace

SelectionKeeper::SelectionKeeper(QAbstractItemView &view, const NewsgroupListModel &model)
    : m_view(view)
    , m_model(model)
{
    const QItemSelectionModel *selection = view.selectionModel();
    if (selectedRows(selection->selection()) <= most)
        m_selected = model.names(selection->selectedIndexes());
    if (selection->currentIndex().isValid())
        m_current = model.name(selection->currentIndex().row());
}

SelectionKeeper::~SelectionKeeper()
{
    QItemSelection selection;
    for (const QString &name : qAsConst(m_selected)) {
        const int row = rowOf(name);
        if (row >= 0)
            selection.select(m_model.index(row, 0), m_model.index(row, m_model.columnCount() - 1));
    }
    const int current = m_current.isEmpty() ? -1 : rowOf(m_current);
    if (current >= 0) {
        m_view.selectionModel()->setCurrentIndex(m_model.index(current, 0), QItemSelectionModel::NoUpdate);
        m_view.scrollTo(m_model.index(current, 0));
    }
    m_view.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

int SelectionKeeper::rowOf(const QString &name) const
{
    return m_model.modelRow(m_model.table().row(name));
}
