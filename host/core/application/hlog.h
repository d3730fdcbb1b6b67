// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QString>
#include <QStringList>

/// The program's log: the newest lines of what Qt's message functions were given, in memory, for the report
/// that a person may save. Secrets that were named are left out of it. Any thread.
class HALVORA_CORE_EXPORT HLog {
public:
    /// Takes over Qt's message handler; messages still go to the handler before it.
    static void install();
    /// From now on @p secret never leaves in a report, in lines written before either. Empty or very short
    /// texts, which would blot out everything, are not taken.
    static void addSecret(const QString &secret);
    /// The report's text.
    static QString report();
};
