// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/requestfailure.h>

#include <QByteArray>
#include <QDomDocument>

/// What a reply may be. The limits are far beyond what the service sends and far below what hurts.
struct ReplyLimits {
    int bytes = 4 * 1024 * 1024;
    int depth = 64;
    int attributes = 64;     ///< of one element
    int nodes = 100'000;     ///< elements, attributes, pieces of text, comments and instructions
    int newsgroups = 20'000; ///< elements of that name
    int nameLength = 512;    ///< of a newsgroup, a folder or a plan, in UTF-16 units
};

/// Reads a reply's document. A first pass of the parser that then builds the tree checks the limits, so
/// that nothing is built of what would take the program's memory or time. Any thread.
class ReplyGuard {
public:
    /// A failure whose detail says what is wrong, and no @p document, unless @p bytes are well-formed XML
    /// inside the limits, without a DOCTYPE and without a character that XML 1.0 forbids, written as itself
    /// or as a reference.
    static RequestFailure parse(const QByteArray &bytes, const ReplyLimits &limits, QDomDocument &document);
};
