// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvia {

/// Writes one XML document, element by element. Whatever the texts hold, the document is well-formed UTF-8.
class XmlWriter {
public:
    XmlWriter();

    XmlWriter &open(const std::string &element);
    /// Only straight after open() or another attribute.
    XmlWriter &attribute(const std::string &name, const std::string &value);
    XmlWriter &attribute(const std::string &name, std::int64_t value);
    XmlWriter &text(const std::string &text);
    /// Takes `markup` as it is: the one text that may spoil the document.
    XmlWriter &markup(const std::string &markup);
    XmlWriter &close();
    /// Closes whatever is open and answers the document.
    std::string finish();

private:
    void endStartTag();

    std::string document_;
    std::vector<std::string> open_;
    bool inStartTag_ = false;
};

} // namespace corvia
