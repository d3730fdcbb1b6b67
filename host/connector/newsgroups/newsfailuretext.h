// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/nntpfailure.h>

#include <QCoreApplication>

class NntpTask;

/// Tells a person why news servers did not give what was wanted. GUI thread.
class NewsFailureText {
    Q_DECLARE_TR_FUNCTIONS(NewsFailureText)
public:
    /// One or two sentences, with the server's own words if there were any.
    static QString sentence(NntpFailure failure, const QString &serverWords);
    /// Why there is a pause of @p seconds.
    static QString delay(int seconds);
};
