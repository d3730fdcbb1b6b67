// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "headertext.h"

#include "newsgroups/lenienttext.h"

#include <QTextCodec>

#include <cctype>

namespace {

constexpr int mostBytes = 4 * headertext::longest;

/// "=?charset?encoding?text?=" at a place in a field.
struct EncodedWord {
    QByteArray charset;
    QByteArray bytes; ///< decoded, still in the character set
    int end = 0;      ///< behind the word; 0 for none
};

int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const int letter = std::toupper(static_cast<unsigned char>(c));
    return letter >= 'A' && letter <= 'F' ? letter - 'A' + 10 : -1;
}

bool decodeQ(const QByteArray &text, QByteArray *bytes)
{
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) != '=') {
            bytes->append(text.at(i) == '_' ? ' ' : text.at(i));
            continue;
        }
        const int high = i + 2 < text.size() ? hexDigit(text.at(i + 1)) : -1;
        const int low = high >= 0 ? hexDigit(text.at(i + 2)) : -1;
        if (low < 0)
            return false;
        bytes->append(char(high * 16 + low));
        i += 2;
    }
    return true;
}

bool decodeB(const QByteArray &text, QByteArray *bytes)
{
    const auto result = QByteArray::fromBase64Encoding(text, QByteArray::AbortOnBase64DecodingErrors);
    *bytes = result.decoded;
    return result.decodingStatus == QByteArray::Base64DecodingStatus::Ok;
}

EncodedWord wordAt(const QByteArray &field, int start)
{
    const int charsetEnd = field.indexOf('?', start + 2);
    const int textStart = charsetEnd + 3;
    if (charsetEnd < 0 || textStart > field.size() || field.at(textStart - 1) != '?')
        return {};
    const int textEnd = field.indexOf("?=", textStart);
    if (textEnd < 0)
        return {};
    EncodedWord word;
    // A language may follow the name of the character set (RFC 2231 section 5).
    word.charset = field.mid(start + 2, charsetEnd - start - 2).split('*').constFirst().toLower();
    const QByteArray text = field.mid(textStart, textEnd - textStart);
    const int encoding = std::toupper(static_cast<unsigned char>(field.at(charsetEnd + 1)));
    const bool isDecoded = encoding == 'B'   ? decodeB(text, &word.bytes)
                           : encoding == 'Q' ? decodeQ(text, &word.bytes)
                                             : false;
    if (isDecoded && QTextCodec::codecForName(word.charset))
        word.end = textEnd + 2;
    return word;
}

/// Where the next word begins if only blanks, which do not count then, stand before it; -1 otherwise.
int followingWord(const QByteArray &field, int from)
{
    int start = from;
    while (start < field.size() && (field.at(start) == ' ' || field.at(start) == '\t'))
        ++start;
    return field.mid(start, 2) == "=?" ? start : -1;
}

/// Decodes the words that stand together from @p start on and says where they end; 0 for none.
int decodeWords(const QByteArray &field, int start, QString *text)
{
    EncodedWord word = wordAt(field, start);
    int end = word.end;
    while (word.end > 0) {
        end = word.end;
        const int next = followingWord(field, end);
        EncodedWord following = next >= 0 ? wordAt(field, next) : EncodedWord();
        // Many programs cut a long text between two words without looking for a character's last byte.
        if (following.end > 0 && following.charset == word.charset) {
            following.bytes.prepend(word.bytes);
        } else {
            *text += QTextCodec::codecForName(word.charset)->toUnicode(word.bytes);
        }
        word = following;
    }
    return end;
}

QString decodeAll(const QByteArray &field)
{
    QString text;
    int done = 0;
    for (int start = field.indexOf("=?"); start >= 0; start = field.indexOf("=?", start)) {
        QString decoded;
        const int end = decodeWords(field, start, &decoded);
        if (end == 0) {
            start += 2;
            continue;
        }
        text += lenienttext::decode(field.mid(done, start - done)) + decoded;
        done = end;
        start = end;
    }
    return text + lenienttext::decode(field.mid(done));
}

} // namespace

QString headertext::decode(const QByteArray &field)
{
    return lenienttext::oneLine(decodeAll(field.left(mostBytes)), longest);
}

QString headertext::poster(const QByteArray &from)
{
    const QByteArray field = from.left(mostBytes);
    const int angle = field.lastIndexOf('<');
    const int comment = field.indexOf('(');
    QString name;
    if (angle >= 0) {
        name = decode(field.left(angle)).remove(QLatin1Char('"'));
    } else if (comment >= 0) {
        const int end = field.lastIndexOf(')');
        name = decode(field.mid(comment + 1, end > comment ? end - comment - 1 : -1));
    }
    if (!name.trimmed().isEmpty())
        return name.trimmed();
    const int close = field.indexOf('>', qMax(angle, 0));
    return decode(angle >= 0 ? field.mid(angle + 1, close > angle ? close - angle - 1 : -1) : field);
}
