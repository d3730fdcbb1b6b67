// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "relaxngschema.h"

#include <libxml/parser.h>

namespace {

#if LIBXML_VERSION >= 21200
using ErrorPointer = const xmlError *;
#else
using ErrorPointer = xmlErrorPtr;
#endif

void keepFirst(void *problem, ErrorPointer error)
{
    auto *text = static_cast<QString *>(problem);
    if (text->isEmpty())
        *text = QString::fromUtf8(error->message).simplified();
}

} // namespace

RelaxNgSchema::RelaxNgSchema(const char *file)
    : m_schema(nullptr, &xmlRelaxNGFree)
{
    const std::unique_ptr<xmlRelaxNGParserCtxt, decltype(&xmlRelaxNGFreeParserCtxt)> context(
        xmlRelaxNGNewParserCtxt(file), &xmlRelaxNGFreeParserCtxt);
    m_schema.reset(xmlRelaxNGParse(context.get()));
}

QString RelaxNgSchema::firstProblem(const QByteArray &document) const
{
    const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> tree(
        xmlReadMemory(document.constData(), document.size(), nullptr, nullptr,
                      XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING),
        &xmlFreeDoc);
    if (!tree)
        return QStringLiteral("not well-formed");
    const std::unique_ptr<xmlRelaxNGValidCtxt, decltype(&xmlRelaxNGFreeValidCtxt)> context(
        xmlRelaxNGNewValidCtxt(m_schema.get()), &xmlRelaxNGFreeValidCtxt);
    QString problem;
    xmlRelaxNGSetValidStructuredErrors(context.get(), &keepFirst, &problem);
    const int result = xmlRelaxNGValidateDoc(context.get(), tree.get());
    return result == 0 || !problem.isEmpty() ? problem : QStringLiteral("invalid");
}
