// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

class QByteArray;

/// What stands before the root element of an XML document. A declaration in there can make a parser take
/// gigabytes and hours for a few lines, so it is looked for before any parser sees the document. Any thread.
namespace nzbprologue {

enum class Verdict {
    Harmless,
    Declares, ///< the document type has a part of its own in the document
    Foreign,  ///< not text in an encoding that has ASCII in it
    Unknown,  ///< more of the document has to be seen
};

/// What the first bytes of a document, @p head, lead to.
Verdict look(const QByteArray &head);

} // namespace nzbprologue
