// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <libxml/tree.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvia {

/// A parsed XML document. Documents with a document type declaration are refused, so no entity is ever
/// expanded and nothing is ever fetched. A document is used by one thread at a time.
class XmlDocument {
public:
    /// A document without content, which is false.
    XmlDocument() = default;
    /// False with the first problem, as one sentence, in problem() and its line in problemLine().
    explicit XmlDocument(const std::string &text);

    explicit operator bool() const { return document_ != nullptr; }
    std::string problem() const { return problem_; }
    int problemLine() const { return problemLine_; }

    xmlDoc *get() const { return document_.get(); }
    xmlNode *root() const;

    static std::string nameOf(const xmlNode *node);
    static std::optional<std::string> attributeOf(const xmlNode *node, const char *name);
    static std::string textOf(const xmlNode *node);
    static std::vector<xmlNode *> elementsOf(const xmlNode *node);
    /// The first child element with this name, or null.
    static xmlNode *elementOf(const xmlNode *node, const char *name);

private:
    struct Freed {
        void operator()(xmlDoc *document) const;
    };

    std::unique_ptr<xmlDoc, Freed> document_;
    std::string problem_;
    int problemLine_ = 0;
};

} // namespace corvia
