// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "replyguard.h"

#include <QtGlobal>

// Qt 5.15 marks this parser as deprecated, but it is the one that QDomDocument itself builds its tree with.
QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED
#include <QXmlDefaultHandler>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

#include <algorithm>

namespace {

class Counter final : public QXmlDefaultHandler {
public:
    explicit Counter(const ReplyLimits &limits)
        : m_limits(limits)
    {
    }

    bool startDTD(const QString &, const QString &, const QString &) override
    {
        return refuse(QStringLiteral("a DOCTYPE"));
    }

    bool startElement(const QString &, const QString &, const QString &,
                      const QXmlAttributes &attributes) override
    {
        if (++m_depth > m_limits.depth)
            return refuse(QStringLiteral("too deep"));
        if (++m_elements > m_limits.elements)
            return refuse(QStringLiteral("too many elements"));
        if (attributes.count() > m_limits.attributes)
            return refuse(QStringLiteral("too many attributes"));
        return true;
    }

    bool endElement(const QString &, const QString &, const QString &) override
    {
        --m_depth;
        return true;
    }

    bool fatalError(const QXmlParseException &) override { return refuse(QStringLiteral("not well-formed")); }
    QString errorString() const override { return m_why; }
    QString why() const { return m_why; }

private:
    bool refuse(const QString &why)
    {
        if (m_why.isEmpty())
            m_why = why;
        return false;
    }

    const ReplyLimits m_limits;
    int m_depth = 0;
    int m_elements = 0;
    QString m_why;
};

bool mayBeBuilt(const QByteArray &bytes, const ReplyLimits &limits, QString &why)
{
    Counter counter(limits);
    QXmlSimpleReader reader;
    reader.setContentHandler(&counter);
    reader.setLexicalHandler(&counter);
    reader.setErrorHandler(&counter);
    QXmlInputSource source;
    source.setData(bytes);
    const bool good = reader.parse(&source, false);
    why = counter.why();
    return good && why.isEmpty();
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

bool ReplyGuard::parse(const QByteArray &bytes, const ReplyLimits &limits, QDomDocument &document,
                       QString &why)
{
    if (bytes.size() > limits.bytes) {
        why = QStringLiteral("too many bytes");
        return false;
    }
    if (holdsControls(bytes)) {
        why = QStringLiteral("control characters");
        return false;
    }
    if (!mayBeBuilt(bytes, limits, why))
        return false;
    if (document.setContent(bytes, false, &why))
        return true;
    document.clear();
    return false;
}

QT_WARNING_POP
