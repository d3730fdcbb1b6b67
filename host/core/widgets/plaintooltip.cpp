// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/plaintooltip.h>

namespace {

constexpr int longest = 2000;

} // namespace

QString plainToolTip(const QString &text)
{
    if (text.isEmpty())
        return {};
    QString shown = text.left(longest);
    if (shown.size() < text.size())
        shown += QChar(0x2026);
    // Without a tag of our own around it, a tool tip is plain or rich as its text happens to look.
    return QLatin1String("<p style=\"white-space:pre-wrap\">") + shown.toHtmlEscaped() +
           QLatin1String("</p>");
}
