// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "scenarionode.h"

#include "xmldocument.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>

namespace corvia {

ScenarioError::ScenarioError(int line, const std::string &reason)
    : std::runtime_error("Line " + std::to_string(line) + " of the scenario: " + reason + ".")
{
}

ScenarioNode::ScenarioNode(const xmlNode *element)
    : element_(element)
{
}

std::string ScenarioNode::name() const
{
    return XmlDocument::nameOf(element_);
}

std::string ScenarioNode::content() const
{
    return XmlDocument::textOf(element_);
}

std::vector<ScenarioNode> ScenarioNode::children() const
{
    std::vector<ScenarioNode> nodes;
    for (const xmlNode *element : XmlDocument::elementsOf(element_)) {
        nodes.emplace_back(element);
    }
    return nodes;
}

std::string ScenarioNode::text(const char *attribute) const
{
    const auto value = optionalText(attribute);
    if (!value) {
        fail("<" + name() + "> needs the attribute \"" + attribute + "\"");
    }
    return *value;
}

std::string ScenarioNode::text(const char *attribute, const std::string &fallback) const
{
    return optionalText(attribute).value_or(fallback);
}

std::optional<std::string> ScenarioNode::optionalText(const char *attribute) const
{
    return XmlDocument::attributeOf(element_, attribute);
}

std::int64_t ScenarioNode::number(const char *attribute) const
{
    text(attribute);
    return *optionalNumber(attribute);
}

std::int64_t ScenarioNode::number(const char *attribute, std::int64_t fallback) const
{
    return optionalNumber(attribute).value_or(fallback);
}

std::optional<std::int64_t> ScenarioNode::optionalNumber(const char *attribute) const
{
    const auto value = optionalText(attribute);
    if (!value) {
        return std::nullopt;
    }
    const bool digits = !value->empty() && value->find_first_not_of("0123456789") == std::string::npos;
    errno = 0;
    const long long number = std::strtoll(value->c_str(), nullptr, 10);
    if (!digits || errno != 0) {
        fail("\"" + *value + "\" is no number for the attribute \"" + attribute + "\"");
    }
    return number;
}

bool ScenarioNode::flag(const char *attribute, bool fallback) const
{
    const std::string value = text(attribute, fallback ? "true" : "false");
    if (value != "true" && value != "false") {
        fail("the attribute \"" + std::string(attribute) + R"(" is "true" or "false")");
    }
    return value == "true";
}

void ScenarioNode::allowAttributes(std::initializer_list<const char *> names) const
{
    for (const xmlAttr *attribute = element_->properties; attribute != nullptr; attribute = attribute->next) {
        const std::string found = reinterpret_cast<const char *>(attribute->name);
        if (std::find(names.begin(), names.end(), found) == names.end()) {
            fail("<" + name() + "> has no attribute \"" + found + "\"");
        }
    }
}

void ScenarioNode::fail(const std::string &reason) const
{
    throw ScenarioError(static_cast<int>(xmlGetLineNo(element_)), reason);
}

void ScenarioNode::failAsUnknown() const
{
    fail("<" + name() + "> has no place here");
}

} // namespace corvia
