// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "writealarm.h"

#include "databaseconnection.h"
#include "databaselog.h"

#include <halvora/dbutils.h>

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QPointer>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStringList>

namespace {

QString notSaved(StorageManager::Contents contents)
{
    switch (contents) {
    case StorageManager::Contents::Bookmarks:
        return WriteAlarm::tr("Bookmarks are not being saved: %1");
    case StorageManager::Contents::Messages:
        return WriteAlarm::tr("Messages are not being saved: %1");
    }
    return {};
}

} // namespace

WriteAlarm::WriteAlarm(StorageManager::Clock clock)
    : m_clock(std::move(clock))
    , m_watch(std::make_unique<StorageWatch>())
{
    connect(m_watch.get(), &StorageWatch::checked, this, &WriteAlarm::applyFinding);
    // The handler is the process's, and may be called when this is gone.
    DBUtils::setFailureHandler([self = QPointer<WriteAlarm>(this)](const QString &reason) {
        if (self)
            self->noteFailure(reason);
    });
    DBUtils::setStatementHandler([self = QPointer<WriteAlarm>(this)](const QSqlQuery &query, bool hasFailed) {
        if (self)
            self->noteStatement(query, hasFailed);
    });
}

WriteAlarm::~WriteAlarm()
{
    // A watch that a disk still keeps waiting keeps what it knows; to destroy it would end the process.
    if (!m_watch->stop())
        static_cast<void>(m_watch.release());
}

void WriteAlarm::add(const QString &file, Contents contents)
{
    m_contents.insert(file, contents);
    m_watch->add(file);
}

QString WriteAlarm::sentence() const
{
    QStringList sentences{problem(), unsaved()};
    sentences.removeAll(QString());
    return sentences.join(QStringLiteral(". "));
}

QString WriteAlarm::unsaved() const
{
    const QDateTime since = m_changes.since();
    if (!since.isValid())
        return {};
    return tr("Changes made since %1 are not saved.")
        .arg(QLocale().toString(since.time(), QLocale::ShortFormat));
}

QString WriteAlarm::problem() const
{
    using Problem = WriteCheck::Problem;
    const QString folder = QFileInfo(m_file).path();
    const QString start = notSaved(m_contents.value(m_file, Contents::Bookmarks));
    switch (m_problem) {
    case Problem::FolderMissing:
        return start.arg(tr("the folder %1 is missing").arg(folder));
    case Problem::FolderReadOnly:
        return start.arg(tr("the folder %1 can not be written").arg(folder));
    case Problem::FileReadOnly:
        return start.arg(tr("the file %1 can not be written").arg(m_file));
    case Problem::NotAFile:
        return start.arg(tr("%1 is not a file").arg(m_file));
    case Problem::FileGone:
        return start.arg(
            tr("the file %1 was removed or replaced; please start the program again").arg(m_file));
    case Problem::DiskFull:
        return start.arg(tr("the disk is full"));
    case Problem::None:
        break;
    }
    if (m_failure.isEmpty())
        return {};
    return notSaved(m_contents.value(m_failureFile, Contents::Bookmarks)).arg(m_failure);
}

void WriteAlarm::noteStatement(const QSqlQuery &query, bool hasFailed)
{
    const QDateTime before = m_changes.since();
    m_changes.note(query, hasFailed, m_clock());
    if (hasFailed)
        m_failedFile = databaseconnection::find(query.driver()).databaseName();
    if (hasFailed || m_changes.since() == before)
        return;          // noteFailure() follows where it failed
    m_watch->checkNow(); // what failed on the way may be over
    tell();
}

void WriteAlarm::noteFailure(const QString &reason)
{
    // The first of a row is the cause; what follows complains of what the first one left undone.
    if (m_failure.isEmpty()) {
        m_failure = reason.isEmpty() ? tr("the database does not say why") : reason;
        m_failureFile = m_failedFile;
    }
    m_failures = m_watch->countFailure();
    m_watch->watch(); // whoever raises the alarm sees to it that it ends
    tell();
}

void WriteAlarm::applyFinding()
{
    const std::optional<StorageWatch::Finding> finding = m_watch->take();
    if (!finding)
        return;
    m_problem = finding->problem;
    m_file = QFile::decodeName(QByteArray::fromStdString(finding->file));
    // A look that had begun before the failure knows nothing of it.
    if (m_problem == WriteCheck::Problem::None && finding->failures == m_failures)
        m_failure.clear();
    tell();
}

void WriteAlarm::tell()
{
    const QString now = sentence();
    if (now == m_told)
        return;
    m_told = now;
    if (now.isEmpty())
        qCInfo(logDatabase) << "Everything is being saved again";
    else
        qCWarning(logDatabase).noquote() << now;
    Q_EMIT changed(now);
}
