// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "replyguard.h"

#include "messages/xmltext.h"

#include <QtGlobal>

// Qt 5.15 marks this parser as deprecated, but it is the one that QDomDocument itself builds its tree with.
QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED
#include <QXmlDefaultHandler>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

#include <algorithm>

namespace {

using Kind = RequestFailure::Kind;

/// Checks what the parser delivers: character references are resolved by then.
class Counter final : public QXmlDefaultHandler {
public:
    explicit Counter(const ReplyLimits &limits)
        : m_limits(limits)
    {
    }

    bool startDTD(const QString &, const QString &, const QString &) override
    {
        return refuse({Kind::BadReply, QStringLiteral("a DOCTYPE")});
    }

    bool startElement(const QString &, const QString &, const QString &name,
                      const QXmlAttributes &attributes) override
    {
        if (++m_depth > m_limits.depth)
            return refuse({Kind::BadReply, QStringLiteral("too deep")});
        if (attributes.count() > m_limits.attributes)
            return refuse({Kind::BadReply, QStringLiteral("too many attributes")});
        return count(1 + attributes.count()) && startName(name) && checkAttributes(name, attributes);
    }

    bool endElement(const QString &, const QString &, const QString &) override
    {
        if (m_depth == m_nameDepth)
            m_nameDepth = 0;
        --m_depth;
        return true;
    }

    bool characters(const QString &text) override
    {
        if (m_nameDepth != 0)
            m_nameLength += text.size();
        return count(1) && checkText(text) && checkName(m_nameLength);
    }

    bool comment(const QString &) override { return count(1); }
    bool processingInstruction(const QString &, const QString &) override { return count(1); }

    // Without a DOCTYPE no entity is declared.
    bool skippedEntity(const QString &) override
    {
        return refuse({Kind::BadReply, QStringLiteral("not well-formed")});
    }

    bool fatalError(const QXmlParseException &) override
    {
        return refuse({Kind::BadReply, QStringLiteral("not well-formed")});
    }

    RequestFailure failure() const { return m_failure; }

private:
    bool refuse(const RequestFailure &failure)
    {
        if (m_failure.isNull())
            m_failure = failure;
        return false;
    }

    bool count(int nodes)
    {
        m_nodes += nodes;
        return m_nodes <= m_limits.nodes || refuse({Kind::TooLarge, QStringLiteral("too many nodes")});
    }

    // The text of an element is that of all elements in it.
    bool startName(const QString &element)
    {
        const bool isNewsgroup = element == QLatin1String("newsgroup");
        if (isNewsgroup && ++m_newsgroups > m_limits.newsgroups)
            return refuse({Kind::TooLarge, QStringLiteral("too many newsgroups")});
        if (m_nameDepth == 0 && (isNewsgroup || element == QLatin1String("name"))) {
            m_nameDepth = m_depth;
            m_nameLength = 0;
        }
        return true;
    }

    bool checkAttributes(const QString &element, const QXmlAttributes &attributes)
    {
        for (int i = 0; i < attributes.count(); ++i) {
            if (!checkText(attributes.value(i)))
                return false;
        }
        return element != QLatin1String("plan") || checkName(attributes.value(QStringLiteral("name")).size());
    }

    bool checkText(const QString &text)
    {
        return xmltext::canCarry(text) || refuse({Kind::BadReply, QStringLiteral("control characters")});
    }

    bool checkName(int length)
    {
        return length <= m_limits.nameLength ||
               refuse({Kind::TooLarge, QStringLiteral("a name that is too long")});
    }

    const ReplyLimits m_limits;
    int m_depth = 0;
    int m_nodes = 0;
    int m_newsgroups = 0;
    int m_nameDepth = 0;  ///< the depth of the element whose text is a name; 0: none is open
    int m_nameLength = 0; ///< of the last one
    RequestFailure m_failure;
};

// The parser is set up as QDomDocument sets it up, so that what is counted is what is built.
RequestFailure inspect(const QByteArray &bytes, const ReplyLimits &limits)
{
    Counter counter(limits);
    QXmlSimpleReader reader;
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), true);
    reader.setFeature(QStringLiteral("http://qt-project.org/xml/features/report-whitespace-only-CharData"),
                      false);
    reader.setContentHandler(&counter);
    reader.setLexicalHandler(&counter);
    reader.setErrorHandler(&counter);
    QXmlInputSource source;
    source.setData(bytes);
    const bool good = reader.parse(&source, false);
    if (good || !counter.failure().isNull())
        return counter.failure();
    return {Kind::BadReply, QStringLiteral("not well-formed")};
}

// The parser lets control characters pass, which XML 1.0 forbids. No other encoding than one that has ASCII
// in it gets past this either.
bool holdsControls(const QByteArray &bytes)
{
    return std::any_of(bytes.begin(), bytes.end(), [](char byte) {
        return uchar(byte) < 0x20 && byte != '\t' && byte != '\n' && byte != '\r';
    });
}

} // namespace

RequestFailure ReplyGuard::parse(const QByteArray &bytes, const ReplyLimits &limits, QDomDocument &document)
{
    if (bytes.size() > limits.bytes)
        return {Kind::TooLarge, QStringLiteral("too many bytes")};
    if (holdsControls(bytes))
        return {Kind::BadReply, QStringLiteral("control characters")};
    RequestFailure failure = inspect(bytes, limits);
    if (!failure.isNull())
        return failure;
    QString why;
    if (document.setContent(bytes, false, &why))
        return {};
    document.clear();
    return {Kind::BadReply, why};
}

QT_WARNING_POP
