// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "nzbparser.h"

#include "nzbprologue.h"

#include <QRegularExpression>
#include <QTextCodec>

#include <utility>

namespace {

constexpr int longestPrologue = 64 * 1024; // bytes
constexpr int longestDeclaration = 200;    // bytes
constexpr int longestPiece = 1024 * 1024;  // bytes of one tag, comment or the like
constexpr int deepest = 32;                // elements in each other
constexpr int mostMeta = 100;
constexpr qint64 largestSegment = qint64(1) << 40; // far beyond any, and so many do not overflow
constexpr qint64 lastDate = 253'402'300'799;       // the end of the year 9999

QString oneLine(const QStringRef &text)
{
    QString line = text.left(NzbParser::longestText).toString();
    if (!line.isEmpty() && line.at(line.size() - 1).isHighSurrogate())
        line.chop(1);
    return line.simplified();
}

// -1 for what is no number from 0 to @p greatest.
qint64 number(const QStringRef &text, qint64 greatest)
{
    bool isNumber = false;
    const qint64 value = text.toLongLong(&isNumber);
    return isNumber && value >= 0 && value <= greatest ? value : -1;
}

} // namespace

NzbParser::NzbParser()
    : m_places{Place::Document}
{
}

NzbParser::~NzbParser() = default;

bool NzbParser::add(const QByteArray &bytes)
{
    if (m_decoder) {
        m_reader.addData(m_decoder->toUnicode(bytes));
        m_unfinished += bytes.size();
        return parse();
    }
    m_head += bytes;
    switch (nzbprologue::look(m_head)) {
    case nzbprologue::Verdict::Harmless:
        if (chooseDecoder())
            return add(std::exchange(m_head, {}));
        fail(NzbFailure::Kind::NotNzb);
        break;
    case nzbprologue::Verdict::Declares:
        fail(NzbFailure::Kind::Declares);
        break;
    case nzbprologue::Verdict::Foreign:
        fail(NzbFailure::Kind::NotNzb);
        break;
    case nzbprologue::Verdict::Unknown:
        if (m_head.size() > longestPrologue)
            fail(NzbFailure::Kind::NotNzb);
        break;
    }
    return m_failure.isNull();
}

bool NzbParser::parse()
{
    while (m_failure.isNull() && !m_isDone) {
        switch (m_reader.readNext()) {
        case QXmlStreamReader::Invalid:
            if (m_reader.error() == QXmlStreamReader::PrematureEndOfDocumentError &&
                m_unfinished <= longestPiece)
                return true;
            fail(NzbFailure::Kind::Damaged);
            break;
        case QXmlStreamReader::StartElement:
            startElement();
            break;
        case QXmlStreamReader::EndElement:
            endElement();
            break;
        case QXmlStreamReader::Characters:
            if (m_text.size() < longestText)
                m_text += m_reader.text().left(longestText);
            break;
        default:
            break;
        }
        m_unfinished = 0;
    }
    return false;
}

// The prologue was looked through as ASCII, so in no other encoding may it be read.
bool NzbParser::chooseDecoder()
{
    const QRegularExpression declaration(
        QStringLiteral("^\\s*<\\?xml\\s[^>]*\\bencoding\\s*=\\s*[\"']([^\"'>]*)[\"']"));
    const QRegularExpression known(
        QStringLiteral(
            "^(utf-?8|(us-)?ascii|iso-8859-[0-9]+|(windows-|cp)125[0-9]|koi8-[ru]|gb2312|gbk|gb18030|big5|"
            "shift_jis|euc-(jp|kr))$"),
        QRegularExpression::CaseInsensitiveOption);
    const QString start = QString::fromUtf8(m_head.left(longestDeclaration));
    const QString encoding = declaration.match(start).captured(1);
    const QTextCodec *codec = nullptr;
    if (encoding.isEmpty())
        codec = QTextCodec::codecForName("UTF-8");
    else if (known.match(encoding).hasMatch())
        codec = QTextCodec::codecForName(encoding.toLatin1());
    if (codec)
        m_decoder.reset(codec->makeDecoder());
    return codec;
}

// What is wrong before there is any element is hardly XML.
void NzbParser::fail(NzbFailure::Kind kind)
{
    const bool isXml = m_places.size() > 1;
    m_failure = kind == NzbFailure::Kind::Damaged && !isXml ? NzbFailure(NzbFailure::Kind::NotNzb)
                                                            : NzbFailure(kind, int(m_reader.lineNumber()));
}

NzbFailure NzbParser::finish()
{
    if (m_failure.isNull() && !m_isDone)
        fail(m_places.size() > 1 ? NzbFailure::Kind::CutOff : NzbFailure::Kind::NotNzb);
    else if (m_failure.isNull() && m_file.entries.isEmpty())
        fail(NzbFailure::Kind::NoFiles);
    return m_failure;
}

NzbFile NzbParser::takeFile()
{
    return std::exchange(m_file, {});
}

NzbParser::Place NzbParser::placeOf(Place parent, const QStringRef &name)
{
    switch (parent) {
    case Place::Document:
        return name == QLatin1String("nzb") ? Place::Nzb : Place::Elsewhere;
    case Place::Nzb:
        if (name == QLatin1String("head"))
            return Place::Head;
        return name == QLatin1String("file") ? Place::File : Place::Elsewhere;
    case Place::Head:
        return name == QLatin1String("meta") ? Place::Meta : Place::Elsewhere;
    case Place::File:
        if (name == QLatin1String("groups"))
            return Place::Groups;
        return name == QLatin1String("segments") ? Place::Segments : Place::Elsewhere;
    case Place::Groups:
        return name == QLatin1String("group") ? Place::Group : Place::Elsewhere;
    case Place::Segments:
        return name == QLatin1String("segment") ? Place::Segment : Place::Elsewhere;
    default:
        return Place::Elsewhere;
    }
}

void NzbParser::startElement()
{
    const Place place = placeOf(m_places.constLast(), m_reader.name());
    if (m_places.size() == 1 && place != Place::Nzb)
        return fail(NzbFailure::Kind::NotNzb);
    m_places.append(place);
    if (m_places.size() > deepest)
        return fail(NzbFailure::Kind::Damaged);
    m_text.clear();
    if (place == Place::File)
        startFile();
    else if (place == Place::Segment)
        startSegment();
    else if (place == Place::Meta)
        m_type = oneLine(m_reader.attributes().value(QLatin1String("type"))).toLower();
}

void NzbParser::startFile()
{
    if (m_file.entries.size() == mostFiles)
        return fail(NzbFailure::Kind::TooMuch);
    const QXmlStreamAttributes attributes = m_reader.attributes();
    NzbEntry entry;
    entry.subject = oneLine(attributes.value(QLatin1String("subject")));
    entry.poster = shared(oneLine(attributes.value(QLatin1String("poster"))));
    entry.posted = number(attributes.value(QLatin1String("date")), lastDate);
    m_file.entries.append(entry);
}

void NzbParser::startSegment()
{
    if (++m_segments > mostSegments)
        return fail(NzbFailure::Kind::TooMuch);
    NzbEntry &entry = m_file.entries.last();
    ++entry.segments;
    const qint64 bytes = number(m_reader.attributes().value(QLatin1String("bytes")), largestSegment);
    if (bytes < 0)
        entry.hasAllSizes = false;
    else
        entry.bytes += bytes;
}

void NzbParser::endElement()
{
    const Place place = m_places.takeLast();
    if (place == Place::Nzb) {
        m_isDone = true;
    } else if (place == Place::Meta && m_file.meta.size() < mostMeta) {
        m_file.meta.insert(m_type, oneLine(QStringRef(&m_text)));
    } else if (place == Place::Group) {
        QStringList &newsgroups = m_file.entries.last().newsgroups;
        const QString name = oneLine(QStringRef(&m_text));
        if (!name.isEmpty() && newsgroups.size() < mostNewsgroups && !newsgroups.contains(name))
            newsgroups.append(shared(name));
    }
}

QString NzbParser::shared(const QString &text)
{
    return *m_shared.insert(text);
}
