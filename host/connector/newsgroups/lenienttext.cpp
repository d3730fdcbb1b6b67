// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "lenienttext.h"

#include <QTextCodec>

namespace {

constexpr int utf8 = 106; // its number in the register of character sets

// An override left open in a subject would mirror what the row shows behind it.
bool turnsDirection(QChar character)
{
    const ushort code = character.unicode();
    return (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

bool isBlank(QChar character)
{
    return character.isSpace() || character.category() == QChar::Other_Control || turnsDirection(character);
}

} // namespace

QString lenienttext::decode(const QByteArray &bytes)
{
    QTextCodec::ConverterState state;
    QString text = QTextCodec::codecForMib(utf8)->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0 ? text : QString::fromLatin1(bytes);
}

QString lenienttext::oneLine(const QString &text, int longest)
{
    QString line;
    line.reserve(qMin(text.size(), longest));
    bool blank = false;
    for (const QChar character : text) {
        if (isBlank(character)) {
            blank = !line.isEmpty();
            continue;
        }
        if (blank)
            line += QLatin1Char(' ');
        blank = false;
        line += character;
        if (line.size() > longest)
            break;
    }
    if (line.size() <= longest)
        return line;
    line.truncate(longest - 1);
    if (!line.isEmpty() && line.at(line.size() - 1).isHighSurrogate())
        line.chop(1);
    return line + QChar(0x2026);
}
