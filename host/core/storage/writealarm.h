// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "storagewatch.h"

#include <QObject>
#include <QString>

#include <memory>

/// Knows whether what is written to the databases reaches the disk, from two sources: the failures that
/// DBUtils meets, and the watch. Either raises the alarm; it ends only when a look of the watch that began
/// afterwards has found everything in order. GUI thread.
class WriteAlarm final : public QObject {
    Q_OBJECT
public:
    /// From now on it is told what DBUtils finds.
    WriteAlarm();
    /// Ends the watch, for which it waits two seconds at most.
    ~WriteAlarm() override;

    StorageWatch &watch() { return *m_watch; }
    /// The problem as one sentence in the user's language, empty for none.
    QString sentence() const;

Q_SIGNALS:
    void changed(const QString &sentence);

private:
    void noteFailure(const QString &reason);
    void applyFinding();
    void tell();

    std::unique_ptr<StorageWatch> m_watch;
    WriteCheck::Problem m_problem = WriteCheck::Problem::None; ///< what the watch found
    QString m_file;                                            ///< where it found that
    QString m_failure;                                         ///< in the database's own words
    quint64 m_failures = 0; ///< how many the watch had counted with the last of them
    QString m_told;         ///< the sentence that was told last
};
