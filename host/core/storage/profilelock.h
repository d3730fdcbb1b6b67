// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QCoreApplication>
#include <QLockFile>

/// Keeps a folder of data for one running program: a second one would have to wait for the first at every
/// database, with its window standing still. A program that died keeps nothing. GUI thread.
class HALVORA_CORE_EXPORT ProfileLock {
    Q_DECLARE_TR_FUNCTIONS(ProfileLock)
public:
    /// Tries once to take @p folder and keeps it until the end of this object.
    explicit ProfileLock(const QString &folder);
    Q_DISABLE_COPY(ProfileLock)

    /// Why the program must not go on, as one sentence; empty when it may. A folder in which no lock can be
    /// made is no reason: that it cannot be written is told in the window.
    QString refusal() const { return m_refusal; }

private:
    bool takeOverEmptyLock();
    static QString describe(const QLockFile &lock, const QString &folder, const QString &file);

    QLockFile m_lock;
    QString m_refusal;
};
