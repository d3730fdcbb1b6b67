// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "passwordstore.h"

#include <qt5keychain/keychain.h>

namespace {

QString serviceName()
{
    return QStringLiteral("halvora");
}

// The libraries behind a started job hold a plain pointer to it until they reply, so a job has no parent and
// deletes itself when it has finished.
template <class Job> Job *makeJob(const QString &user)
{
    auto *job = new Job(serviceName());
    job->setAutoDelete(true);
    job->setKey(user);
    return job;
}

} // namespace

PasswordStore::PasswordStore(QObject *parent)
    : QObject(parent)
{
}

void PasswordStore::look(const QString &user)
{
    auto *job = makeJob<QKeychain::ReadPasswordJob>(user);
    connect(job, &QKeychain::Job::finished, this, [this, user, job, call = ++m_calls] {
        if (call != m_calls)
            return;
        m_known = {user, job->textData()};
        Q_EMIT found(user, job->textData());
    });
    job->start();
}

void PasswordStore::keep(const QString &user, const QString &password)
{
    ++m_calls;
    if (m_known == qMakePair(user, password))
        return;
    m_known = {user, password};
    auto *job = makeJob<QKeychain::WritePasswordJob>(user);
    job->setTextData(password);
    job->start();
}

void PasswordStore::forget(const QString &user)
{
    discard(user, QString());
    m_known = {};
}

void PasswordStore::discard(const QString &user, const QString &password)
{
    ++m_calls;
    m_known = {user, password};
    makeJob<QKeychain::DeletePasswordJob>(user)->start();
}
