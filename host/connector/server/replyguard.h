// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDomDocument>
#include <QString>

/// What a reply may be. The limits are far beyond what the service sends and far below what hurts.
struct ReplyLimits {
    int bytes = 4 * 1024 * 1024;
    int depth = 64;
    int attributes = 64; ///< of one element
    int elements = 200'000;
};

/// Reads a reply's document. It is looked through first, by the same parser that then builds the tree, so
/// that nothing is built of what would take the program's memory or time. Any thread.
class ReplyGuard {
public:
    /// False, with what is wrong in @p why, unless @p bytes are well-formed XML without a DOCTYPE or a
    /// control character, inside the limits.
    static bool parse(const QByteArray &bytes, const ReplyLimits &limits, QDomDocument &document,
                      QString &why);
};
