// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "passwordstore.h"

#include <qt5keychain/keychain.h>

namespace {

QString serviceName()
{
    return QStringLiteral("halvora");
}

} // namespace

PasswordStore::PasswordStore(QObject *parent)
    : QObject(parent)
{
}

void PasswordStore::look(const QString &user)
{
    auto *job = new QKeychain::ReadPasswordJob(serviceName(), this);
    job->setKey(user);
    connect(job, &QKeychain::Job::finished, this, [this, user, job] {
        m_known = {user, job->textData()};
        Q_EMIT found(user, job->textData());
    });
    job->start();
}

void PasswordStore::keep(const QString &user, const QString &password)
{
    if (m_known == qMakePair(user, password))
        return;
    m_known = {user, password};
    auto *job = new QKeychain::WritePasswordJob(serviceName(), this);
    job->setKey(user);
    job->setTextData(password);
    job->start();
}

void PasswordStore::forget(const QString &user)
{
    m_known = {};
    auto *job = new QKeychain::DeletePasswordJob(serviceName(), this);
    job->setKey(user);
    job->start();
}
