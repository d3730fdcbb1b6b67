// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>

#include <QByteArray>
#include <QtGlobal>

#include <optional>

/// What a server says of a newsgroup that was selected. A plain value.
struct HALVORA_CONNECTOR_EXPORT NntpGroup {
    qint64 count = 0; ///< articles, as the server guesses; never negative, and no more than the range holds
    qint64 first = 1; ///< the lowest number in use, at least 0
    qint64 last = 0;  ///< the highest number in use; less than the first in an empty group

    bool isEmpty() const { return last < first; }

    /// Reads "211 count first last ...". Nothing when these are not three numbers. Numbers that contradict
    /// each other make an empty group, and numbers that are too large the largest there is.
    static std::optional<NntpGroup> fromReply(const QByteArray &line);
};
