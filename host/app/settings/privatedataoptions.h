// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QWidget>

class IPrivateData;
class PrivateDataRegistry;

/// The option widgets of every part that keeps private data, and below each widget its accessible
/// description, which says what goes and what stays. Each part gets back the widgets that it made, and one
/// that has gone since is left out. A change of the language makes the widgets anew, with the same choices in
/// them. GUI thread.
class PrivateDataOptions final : public QWidget {
    Q_OBJECT
public:
    /// @p registry outlives this object.
    PrivateDataOptions(const PrivateDataRegistry &registry, QWidget *parent);

    /// Whether there is nothing to choose.
    bool isEmpty() const;
    /// Remembers what is chosen.
    void save();
    /// Deletes what is chosen, for good.
    void clear();
    /// Shows what is remembered.
    void reload();

protected:
    void changeEvent(QEvent *event) override;

private:
    struct Group {
        IPrivateData *part;
        QWidget *box; ///< owns the widgets
        QList<QWidget *> widgets;
    };

    void make();
    void makeInTheNewLanguage();
    void takeChoices(const Group &before) const;
    bool isThere(const Group &group) const;

    const PrivateDataRegistry &m_registry;
    QList<Group> m_groups;
};
