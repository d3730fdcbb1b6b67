// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "nzbprologue.h"

#include <QByteArray>

#include <cstring>

namespace nzbprologue {

namespace {

constexpr int lookedFor = 9; // as long as the longest mark below

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// Behind the next @p mark; -1 when it is not there.
int behind(const QByteArray &head, const char *mark, int from)
{
    const int found = head.indexOf(mark, from);
    return found < 0 ? -1 : found + int(std::strlen(mark));
}

// Behind the document type, whose names may be quoted; 0 when it has declarations of its own.
int behindDocumentType(const QByteArray &head, int from)
{
    char quote = 0;
    for (int at = from; at < head.size(); ++at) {
        const char c = head.at(at);
        if (quote) {
            if (c == quote)
                quote = 0;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '>') {
            return at + 1;
        } else if (c == '[') {
            return 0;
        }
    }
    return -1;
}

} // namespace

Verdict look(const QByteArray &head)
{
    if (head.contains('\0') || head.startsWith("\xFF\xFE") || head.startsWith("\xFE\xFF"))
        return Verdict::Foreign;
    int at = head.startsWith("\xEF\xBB\xBF") ? 3 : 0;
    while (true) {
        while (at < head.size() && isBlank(head.at(at)))
            ++at;
        const QByteArray next = head.mid(at, lookedFor);
        int end = 0;
        if (next.startsWith("<?"))
            end = behind(head, "?>", at + 2);
        else if (next.startsWith("<!--"))
            end = behind(head, "-->", at + 4);
        else if (next == "<!DOCTYPE")
            end = behindDocumentType(head, at + lookedFor);
        else if (next.isEmpty() || QByteArray("<!DOCTYPE").startsWith(next) ||
                 QByteArray("<!--").startsWith(next))
            return Verdict::Unknown;
        else
            return Verdict::Harmless;
        if (end <= 0)
            return end == 0 ? Verdict::Declares : Verdict::Unknown;
        at = end;
    }
}

} // namespace nzbprologue
