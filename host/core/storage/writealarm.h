// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "storagewatch.h"
#include "unsavedchanges.h"

#include <halvora/storagemanager.h>

#include <QDateTime>
#include <QHash>
#include <QObject>
#include <QString>

#include <memory>

/// Knows whether what is written to the databases reaches the disk, from two sources: the failures that
/// DBUtils meets, and the watch. Either raises the alarm; it ends only when a look of the watch that began
/// afterwards has found everything in order, and not while a change is unsaved. GUI thread.
class WriteAlarm final : public QObject {
    Q_OBJECT
public:
    using Contents = StorageManager::Contents;

    /// Takes in what DBUtils sees from now on. @p clock gives the user's own time.
    explicit WriteAlarm(StorageManager::Clock clock);
    /// Ends the watch, for which it waits two seconds at most.
    ~WriteAlarm() override;

    /// Watches @p file, which keeps @p contents.
    void add(const QString &file, Contents contents);
    StorageWatch &watch() { return *m_watch; }
    /// The problem and since when changes are unsaved, in the user's language; empty for neither.
    QString sentence() const;

Q_SIGNALS:
    void changed(const QString &sentence);

private:
    QString problem() const;
    QString unsaved() const;
    void noteStatement(const QSqlQuery &query, bool hasFailed);
    void noteFailure(const QString &reason);
    void applyFinding();
    void tell();

    const StorageManager::Clock m_clock;
    std::unique_ptr<StorageWatch> m_watch;
    UnsavedChanges m_changes;
    QHash<QString, Contents> m_contents;                       ///< by file; bookmarks where it is unknown
    WriteCheck::Problem m_problem = WriteCheck::Problem::None; ///< what the watch found
    QString m_file;                                            ///< where it found that
    QString m_failure;                                         ///< in the database's own words
    QString m_failedFile;                                      ///< of the statement that failed last
    QString m_failureFile;                                     ///< that m_failure is about
    quint64 m_failures = 0; ///< how many the watch had counted with the last of them
    QString m_told;         ///< the sentence that was told last
};
