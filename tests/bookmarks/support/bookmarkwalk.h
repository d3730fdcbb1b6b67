// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "bookmarkoracle.h"
#include "bookmarkstore.h"
#include "committrace.h"
#include "statementfaults.h"

#include <QObject>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <random>

/// A random walk through everything that can be done to bookmarks, on the model and on the oracle, each with
/// a file of its own. The same seed walks the same way.
class BookmarkWalk {
public:
    enum Kind {
        Watched, ///< a view reads everything around each change, and a model tester looks on
        Lazy,    ///< folders are read when they are asked for
        Failing, ///< lazy, and statements fail
    };
    BookmarkWalk(Kind kind, quint32 seed);
    ~BookmarkWalk();
    Q_DISABLE_COPY(BookmarkWalk)

    /// One operation on both. Returns what they differ in afterwards; empty when they are the same.
    QString step();

    /// How many operations had a statement fail on purpose.
    int faultCount() const { return m_faultCount; }
    int commitCount() const { return m_commitCount; }

private:
    using Operation = void (BookmarkWalk::*)();
    struct Drag {
        QByteArray bytes;
        QVector<qint64> ids;
        QVector<int> sources; ///< serial numbers
    };

    int upTo(int last);
    bool chance(int percent);
    Operation nextOperation();
    QString name();
    QStringList names();

    void attach();
    void detach();
    void noteSignals();
    /// Runs both with the same failures, if any.
    void both(const std::function<void()> &model, const std::function<void()> &oracle);
    void beginFault();
    void endFault();
    bool lock();
    QString difference();

    QVector<OracleItem *> items();
    OracleItem *itemWith(int serial);
    /// Null when there is none such.
    OracleItem *anyItem();
    OracleItem *anyFolder();
    /// A folder, or null for the top.
    OracleItem *anyTarget();
    /// The model's index of @p item; asks about the folders above it on both sides.
    QModelIndex indexOf(OracleItem *item);
    int anyRow(OracleItem *folder, const QModelIndex &index);
    qint64 numberIn(const char *statement, std::initializer_list<SqlValue> values = {});
    /// Whether the tree would become endless if rows of @p ids, or new rows, came below @p folder.
    bool wouldLoop(const QVector<qint64> &ids, const OracleItem *folder);

    void addFolder();
    void addBookmarks();
    void rename();
    void setColor();
    void setExpanded();
    void open();
    void remove();
    void dropNewsgroups();
    void startDrag();
    void dropBookmarks();
    void forgetSources();
    void removeAnyRows();
    void importFolders();
    void load();
    void clear();
    void reopen();
    void addStrangeRows();
    void removeSource(int serial);

    const Kind m_kind;
    std::mt19937 m_random;
    BookmarkStore m_store;
    QTemporaryDir m_folder;
    BookmarkOracle m_oracle;
    std::unique_ptr<CommitTrace> m_modelTrace;
    std::unique_ptr<CommitTrace> m_oracleTrace;
    std::unique_ptr<StatementFaults> m_modelFaults;
    std::unique_ptr<StatementFaults> m_oracleFaults;
    std::unique_ptr<QObject> m_watcher;
    QStringList m_signals; ///< of model and provider, since the last comparison
    QVector<Drag> m_drags;
    QVector<int> m_sources; ///< of drops; what a view has yet to remove
    int m_limit = 20;       ///< of rows
    bool m_locked = false;
    int m_faultCount = 0;
    int m_commitCount = 0;
    QString m_done; ///< the last operation and what failed in it, for reports, like the next one
    QStringList m_history;
};
