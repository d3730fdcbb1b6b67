// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "nntpreply.h"

#include <algorithm>
#include <array>

namespace {

constexpr int CodeLength = 3;
constexpr int LongestText = 512;

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

int codeOf(const QByteArray &line)
{
    if (line.size() < CodeLength || !std::all_of(line.cbegin(), line.cbegin() + CodeLength, isDigit))
        return 0;
    if (line.size() > CodeLength && line.at(CodeLength) != ' ')
        return 0;
    return line.left(CodeLength).toInt();
}

QByteArray withoutSecret(const QByteArray &line, const QByteArray &secret)
{
    if (secret.isEmpty())
        return line;
    // A password such as "1" must not eat into the code, which the server would have sent in any case.
    const int kept = codeOf(line) != 0 && secret.size() <= CodeLength ? CodeLength : 0;
    return line.left(kept) + line.mid(kept).replace(secret, QByteArrayLiteral("***"));
}

bool isUnprintable(QChar character)
{
    // Format characters include the ones that turn the direction of writing around.
    return character.category() == QChar::Other_Control || character.category() == QChar::Other_Format ||
           character.category() == QChar::Separator_Line ||
           character.category() == QChar::Separator_Paragraph;
}

QString readable(const QByteArray &line)
{
    // With its size, because the overload for a byte array stops at the first NUL.
    QString text = QString::fromUtf8(line.constData(), line.size());
    std::replace_if(text.begin(), text.end(), isUnprintable, QChar(QChar::ReplacementCharacter));
    if (text.size() <= LongestText)
        return text;
    // Never half a character.
    return text.left(text.at(LongestText - 1).isHighSurrogate() ? LongestText - 1 : LongestText);
}

bool says(const QString &text, const char *words)
{
    return text.contains(QLatin1String(words), Qt::CaseInsensitive);
}

} // namespace

NntpReply::NntpReply(const QByteArray &line, const QByteArray &secret)
    : m_code(codeOf(line))
    , m_text(readable(withoutSecret(line, secret)))
{
}

bool NntpReply::isTooManyConnections() const
{
    static constexpr std::array<int, 5> codes = {400, 452, 481, 482, 502};
    if (std::find(codes.cbegin(), codes.cend(), m_code) == codes.cend() || !says(m_text, "connection"))
        return false;
    return says(m_text, "too many") || says(m_text, "limit") || says(m_text, "maximum") ||
           says(m_text, "exceeded");
}
