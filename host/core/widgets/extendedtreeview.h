// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QTreeView>

/// A tree view that shows tool tips as plain text and cuts off very long ones: names come from other people,
/// and what looks like markup would be laid out as such, for seconds when it is nested deeply enough. All
/// else is QTreeView's.
class HALVORA_CORE_EXPORT ExtendedTreeView : public QTreeView {
    Q_OBJECT
public:
    explicit ExtendedTreeView(QWidget *parent = nullptr);
    ~ExtendedTreeView() override;
    Q_DISABLE_COPY(ExtendedTreeView)

protected:
    bool viewportEvent(QEvent *event) override;
};
