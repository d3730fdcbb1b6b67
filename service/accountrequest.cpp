// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "accountrequest.h"

namespace corvia {

namespace {

std::string textOfElement(const xmlNode *parent, const char *name)
{
    const xmlNode *element = XmlDocument::elementOf(parent, name);
    return element != nullptr ? XmlDocument::textOf(element) : std::string();
}

std::vector<std::string> uidsIn(const xmlNode *parent, const char *name)
{
    std::vector<std::string> uids;
    if (const xmlNode *list = XmlDocument::elementOf(parent, name)) {
        for (const xmlNode *message : XmlDocument::elementsOf(list)) {
            uids.push_back(XmlDocument::attributeOf(message, "uid").value_or(""));
        }
    }
    return uids;
}

} // namespace

AccountRequest AccountRequest::read(const std::string &body, const Schema &schema)
{
    AccountRequest request;
    const XmlDocument document(body);
    if (!document) {
        request.problem = document.problem();
        return request;
    }
    request.session = XmlDocument::attributeOf(document.root(), "session").value_or("");
    const auto elements = XmlDocument::elementsOf(document.root());
    if (!elements.empty()) {
        request.name = XmlDocument::nameOf(elements.front());
        request.userName = textOfElement(elements.front(), "user-name");
        request.password = textOfElement(elements.front(), "password");
        request.readUids = uidsIn(elements.front(), "read");
        request.deletedUids = uidsIn(elements.front(), "deleted");
        request.fileGroup = XmlDocument::attributeOf(elements.front(), "filegroup").value_or("");
    }
    request.problem = schema.firstProblem(document);
    return request;
}

} // namespace corvia
