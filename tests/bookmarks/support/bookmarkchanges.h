// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QModelIndex>
#include <QString>
#include <QVector>

#include <random>

class OpenBookmarkManager;

/// Changes as a user makes them, one after the other: the same ones for the same seed and the same file. The
/// tree keeps a size at which there is always something to change.
class BookmarkChanges {
public:
    /// @p model is loaded and outlives this object.
    BookmarkChanges(OpenBookmarkManager &model, quint32 seed);

    /// Makes the next change, and says which it was once the model has returned.
    QByteArray next();

private:
    quint32 below(quint32 end) { return quint32(m_random()) % end; }
    QString newName();
    QVector<QModelIndex> indexes() const;
    /// An invalid index, which is the top, as often as any folder.
    QModelIndex anyFolder(const QVector<QModelIndex> &indexes);

    QByteArray add(const QVector<QModelIndex> &indexes);
    QByteArray import();
    QByteArray remove(const QModelIndex &index);
    QByteArray change(const QModelIndex &index);
    QByteArray move(const QModelIndex &index, const QVector<QModelIndex> &indexes);

    OpenBookmarkManager &m_model;
    std::mt19937 m_random;
};
