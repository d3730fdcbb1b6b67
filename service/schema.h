// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "xmldocument.h"

#include <memory>
#include <mutex>
#include <string>

namespace corvia {

/// A RELAX NG schema. Any thread.
class Schema {
public:
    /// `text` is the schema in the XML syntax. Throws std::invalid_argument with the reason when it is none.
    explicit Schema(const std::string &text);
    ~Schema();
    Schema(const Schema &) = delete;
    Schema &operator=(const Schema &) = delete;

    /// The validator's first complaint about `document` as one line; empty when the document is valid.
    std::string firstProblem(const XmlDocument &document) const;

private:
    struct Compiled;

    mutable std::mutex mutex_;
    std::unique_ptr<Compiled> compiled_;
};

} // namespace corvia
