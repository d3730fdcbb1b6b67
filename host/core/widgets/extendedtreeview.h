// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QTreeView>

/// A tree view that shows tool tips as plain text and cuts off very long ones: names come from other people,
/// and what looks like markup would be laid out as such, for seconds when it is nested deeply enough. A
/// subclass may have many folders asked for children a few at a time. All else is QTreeView's.
class HALVORA_CORE_EXPORT ExtendedTreeView : public QTreeView {
    Q_OBJECT
public:
    explicit ExtendedTreeView(QWidget *parent = nullptr);
    ~ExtendedTreeView() override;
    Q_DISABLE_COPY(ExtendedTreeView)

    void reset() override;
    void doItemsLayout() override;

protected:
    /// After a reset the top-level rows are asked for children in several turns of the event loop, because a
    /// model may read them then; the rows are laid out when all have been asked. Few or fast ones take one
    /// turn.
    void setAskingInTurns(bool inTurns) { m_isAskingInTurns = inTurns; }
    bool viewportEvent(QEvent *event) override;

private:
    bool askForChildren();

    bool m_isAskingInTurns = false;
    int m_askedRows = 0;
};
