// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "xmltext.h"

namespace {

// XML 1.0, section 2.2, of what a single unit can be.
bool isCharacter(QChar unit)
{
    const ushort code = unit.unicode();
    return (code >= 0x20 && code < 0xFFFE && !unit.isSurrogate()) || code == '\t' || code == '\n' ||
           code == '\r';
}

} // namespace

bool xmltext::canCarry(const QString &text)
{
    for (int i = 0; i < text.size(); ++i) {
        const bool isPair =
            text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (isPair)
            ++i;
        else if (!isCharacter(text.at(i)))
            return false;
    }
    return true;
}
