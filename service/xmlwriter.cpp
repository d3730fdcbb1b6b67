// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "xmlwriter.h"

#include <libxml/xmlstring.h>

namespace corvia {

namespace {

std::string escaped(const std::string &text)
{
    const bool utf8 = xmlCheckUTF8(reinterpret_cast<const unsigned char *>(text.c_str())) != 0;
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '&') {
            result += "&amp;";
        } else if (c == '<') {
            result += "&lt;";
        } else if (c == '>') {
            result += "&gt;";
        } else if (c == '"') {
            result += "&quot;";
        } else if (byte < 0x20 && c != '\n' && c != '\t') {
            result += ' ';
        } else {
            result += byte >= 0x80 && !utf8 ? '?' : c;
        }
    }
    return result;
}

} // namespace

XmlWriter::XmlWriter()
    : document_("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n")
{
}

XmlWriter &XmlWriter::open(const std::string &element)
{
    endStartTag();
    document_ += '<' + element;
    open_.push_back(element);
    inStartTag_ = true;
    return *this;
}

XmlWriter &XmlWriter::attribute(const std::string &name, const std::string &value)
{
    document_ += ' ' + name + "=\"" + escaped(value) + '"';
    return *this;
}

XmlWriter &XmlWriter::attribute(const std::string &name, std::int64_t value)
{
    return attribute(name, std::to_string(value));
}

XmlWriter &XmlWriter::text(const std::string &text)
{
    endStartTag();
    document_ += escaped(text);
    return *this;
}

XmlWriter &XmlWriter::markup(const std::string &markup)
{
    endStartTag();
    document_ += markup;
    return *this;
}

XmlWriter &XmlWriter::close()
{
    if (inStartTag_) {
        document_ += "/>";
        inStartTag_ = false;
    } else {
        document_ += "</" + open_.back() + '>';
    }
    open_.pop_back();
    return *this;
}

std::string XmlWriter::finish()
{
    while (!open_.empty()) {
        close();
    }
    return document_ + '\n';
}

void XmlWriter::endStartTag()
{
    if (inStartTag_) {
        document_ += '>';
        inStartTag_ = false;
    }
}

} // namespace corvia
