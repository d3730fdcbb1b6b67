// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QDateTime>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <memory>

class WriteAlarm;

/// Where the program keeps its data and the user's downloads, and who looks after the databases: a damaged
/// one is replaced by its newest copy before it is opened, and somebody notices when what is written does not
/// reach the disk. One object a process. GUI thread.
class HALVORA_CORE_EXPORT StorageManager : public QObject {
    Q_OBJECT
public:
    /// The user's own time.
    using Clock = std::function<QDateTime()>;
    /// What a database keeps, for the sentences about it.
    enum class Contents { Bookmarks, Messages };

    /// Everything lives in @p profile when it is given, otherwise in the user's XDG folders. From now on it
    /// is told what DBUtils finds.
    explicit StorageManager(const QString &profile = QString());
    /// Ends the watch over the databases, for which it waits two seconds at most.
    ~StorageManager() override;
    Q_DISABLE_COPY(StorageManager)

    /// The absolute path of the folder for databases and journals, made on demand for its owner alone. Where
    /// it cannot be made, whoever opens a file in it learns so then.
    QString dataDirectory() const;
    /// The database file of @p storageName in dataDirectory(); to be asked for before the file is opened. The
    /// first call for each name checks the file, which may take as long as reading it, puts a damaged one
    /// aside and its newest good copy in its place, restores a missing one from that copy, makes today's copy
    /// of one that has changed, and begins to watch whether the file can be written. A file that is not there
    /// and has no copy is not made. It keeps bookmarks.
    QString databasePath(const QString &storageName);
    /// The same for a database that keeps @p contents.
    QString databasePath(const QString &storageName, Contents contents);
    /// Deletes the dated copies of the database of @p storageName and what was put aside of it as damaged. To
    /// be called once the database is cleared of private data.
    void removeCopies(const QString &storageName) const;

    /// Whether another program keeps this one from using the database of @p storageName. Tries to read and to
    /// begin a change on a connection of its own, for at most 200 ms; to be called before the file is opened.
    bool isDatabaseLocked(const QString &storageName) const;

    /// Names the folder for downloads within the user's own; the name is cleaned with fileName().
    void setDownloadFolderName(const QString &name);
    /// The absolute path of the folder for downloads, which whoever saves the first file makes.
    QString downloadFolder() const;

    /// @p name as a single component of a path: without separators and control characters, never hidden and
    /// never longer than file systems allow; @p fallback when nothing is left of it.
    static QString fileName(const QString &name, const QString &fallback);

    /// The sentences for which noticeRaised() had no listener yet; each is given once.
    QStringList takeNotices();
    /// Why bookmarks are not being saved, and since when changes are not saved, in the user's language;
    /// empty when everything is.
    QString writeProblem() const;

    /// Replaces the system's clock, before the first database is asked for.
    void setClock(const Clock &clock);
    /// The time between two looks at whether the databases can be written; a minute unless told.
    void setCheckInterval(std::chrono::milliseconds interval);
    /// Looks at once. The outcome comes later, by writeProblemChanged() if it is another one.
    void checkNow();

Q_SIGNALS:
    /// Something has happened to a database that the user has to know.
    void noticeRaised(const QString &sentence);
    /// @p sentence is writeProblem(). A problem is raised by whoever meets it first, and goes only when a
    /// look that began afterwards has found everything in order. That changes are not saved goes when they
    /// are, or when their store was read again or emptied.
    void writeProblemChanged(const QString &sentence);

private:
    QString pathOf(const QString &storageName) const;
    void raiseNotice(const QString &sentence);

    QString m_profile; ///< absolute, or empty
    QString m_downloadFolderName;
    Clock m_clock;
    QSet<QString> m_guarded; ///< database files
    QStringList m_notices;
    std::unique_ptr<WriteAlarm> m_alarm;
};
