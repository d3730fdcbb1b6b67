// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "notificationtext.h"

#include <QVector>

namespace {

// Signs that are not seen and turn around what stands beside them belong to whoever wants to deceive.
bool isShown(uint character)
{
    const bool none = (character & 0xfffe) == 0xfffe;
    const bool turns =
        (character >= 0x202a && character <= 0x202e) || (character >= 0x2066 && character <= 0x2069);
    return !none && !turns;
}

bool isBlank(uint character)
{
    const QChar::Category category = QChar::category(character);
    return category == QChar::Other_Control || QChar::isSpace(character);
}

} // namespace

QString NotificationText::plainLine(const QString &text, int most)
{
    QString line;
    // A few times as much as is shown, because some of it goes; nobody reads a million characters.
    const QVector<uint> characters = text.leftRef(most * 4).toUcs4();
    for (const uint character : characters) {
        if (isBlank(character))
            line += QLatin1Char(' ');
        else if (isShown(character))
            line += QString::fromUcs4(&character, 1);
    }
    line = line.simplified();
    if (line.size() <= most && text.size() <= most * 4)
        return line;
    line.truncate(most - 1);
    if (!line.isEmpty() && line.at(line.size() - 1).isHighSurrogate())
        line.chop(1);
    return line.trimmed() + QChar(0x2026);
}

QString NotificationText::escaped(const QString &line)
{
    return line.toHtmlEscaped();
}
