// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "xmldocument.h"

#include <libxml/parser.h>
#include <mutex>

namespace corvia {

namespace {

std::string taken(xmlChar *text)
{
    const std::unique_ptr<xmlChar, void (*)(void *)> owned(text, xmlFree);
    return owned ? reinterpret_cast<const char *>(owned.get()) : std::string();
}

std::string firstLine(const char *message)
{
    const std::string text = message != nullptr ? message : "The document cannot be read";
    return text.substr(0, text.find('\n'));
}

} // namespace

void XmlDocument::Freed::operator()(xmlDoc *document) const
{
    xmlFreeDoc(document);
}

XmlDocument::XmlDocument(const std::string &text)
{
    static std::once_flag once;
    std::call_once(once, xmlInitParser);
    const std::unique_ptr<xmlParserCtxt, void (*)(xmlParserCtxt *)> parser(xmlNewParserCtxt(),
                                                                           xmlFreeParserCtxt);
    const int options = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_NOCDATA;
    const int size = static_cast<int>(text.size());
    document_.reset(xmlCtxtReadMemory(parser.get(), text.data(), size, nullptr, nullptr, options));
    if (!document_) {
        const xmlError *error = xmlCtxtGetLastError(parser.get());
        problem_ = firstLine(error != nullptr ? error->message : nullptr);
        problemLine_ = error != nullptr ? error->line : 1;
    } else if (document_->intSubset != nullptr) {
        document_.reset();
        problem_ = "A document type declaration is not allowed";
        problemLine_ = 1;
    }
}

xmlNode *XmlDocument::root() const
{
    return document_ ? xmlDocGetRootElement(document_.get()) : nullptr;
}

std::string XmlDocument::nameOf(const xmlNode *node)
{
    return reinterpret_cast<const char *>(node->name);
}

std::optional<std::string> XmlDocument::attributeOf(const xmlNode *node, const char *name)
{
    xmlChar *value = xmlGetNoNsProp(node, reinterpret_cast<const xmlChar *>(name));
    return value != nullptr ? std::optional<std::string>(taken(value)) : std::nullopt;
}

std::string XmlDocument::textOf(const xmlNode *node)
{
    return taken(xmlNodeGetContent(node));
}

std::vector<xmlNode *> XmlDocument::elementsOf(const xmlNode *node)
{
    std::vector<xmlNode *> elements;
    for (xmlNode *child = node->children; child != nullptr; child = child->next) {
        if (child->type == XML_ELEMENT_NODE) {
            elements.push_back(child);
        }
    }
    return elements;
}

xmlNode *XmlDocument::elementOf(const xmlNode *node, const char *name)
{
    for (xmlNode *child : elementsOf(node)) {
        if (nameOf(child) == name) {
            return child;
        }
    }
    return nullptr;
}

} // namespace corvia
