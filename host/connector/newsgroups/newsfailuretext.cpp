// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "newsfailuretext.h"

namespace {

QString withWords(const QString &sentence, const QString &serverWords)
{
    return serverWords.isEmpty() ? sentence : sentence + QLatin1Char(' ') + serverWords;
}

} // namespace

QString NewsFailureText::sentence(NntpFailure failure, const QString &serverWords)
{
    switch (failure) {
    case NntpFailure::None:
        return {};
    case NntpFailure::NoAccount:
        return tr("You are not logged in.");
    case NntpFailure::Unreachable:
        return withWords(tr("The news server can not be reached."), serverWords);
    case NntpFailure::Refused:
        return serverWords.isEmpty() ? tr("The news server refused.")
                                     : tr("The news server said: %1").arg(serverWords);
    case NntpFailure::Broken:
        return withWords(tr("The connection to the news server broke."), serverWords);
    case NntpFailure::Cancelled:
        return tr("Loading was interrupted.");
    case NntpFailure::ShuttingDown:
        return tr("The program is being closed.");
    }
    return {};
}

QString NewsFailureText::delay(int seconds)
{
    return tr("All connections of the account are in use. Next attempt in %1 s.").arg(seconds);
}
