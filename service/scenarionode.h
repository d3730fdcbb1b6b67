// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <initializer_list>
#include <libxml/tree.h>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace corvia {

/// What is wrong with a scenario: one sentence with the line.
class ScenarioError : public std::runtime_error {
public:
    ScenarioError(int line, const std::string &reason);
};

/// One element of a scenario file. Reading what is not there, or is not what it has to be, throws
/// ScenarioError. Refers to a document that has to outlive it.
class ScenarioNode {
public:
    explicit ScenarioNode(const xmlNode *element);

    std::string name() const;
    /// All text within the element.
    std::string content() const;
    std::vector<ScenarioNode> children() const;

    std::string text(const char *attribute) const;
    std::string text(const char *attribute, const std::string &fallback) const;
    std::optional<std::string> optionalText(const char *attribute) const;
    /// A whole number of zero or more.
    std::int64_t number(const char *attribute) const;
    std::int64_t number(const char *attribute, std::int64_t fallback) const;
    std::optional<std::int64_t> optionalNumber(const char *attribute) const;
    /// "true" or "false".
    bool flag(const char *attribute, bool fallback) const;

    /// Throws when the element has an attribute other than these.
    void allowAttributes(std::initializer_list<const char *> names) const;
    [[noreturn]] void fail(const std::string &reason) const;
    /// Says that this element has no place where it stands.
    [[noreturn]] void failAsUnknown() const;

private:
    const xmlNode *element_;
};

} // namespace corvia
