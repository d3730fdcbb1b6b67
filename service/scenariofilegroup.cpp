// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "scenariofilegroup.h"

#include <algorithm>
#include <cctype>

namespace corvia {

namespace {

bool isWord(const std::string &text)
{
    return !text.empty() && text.size() <= 200 && std::all_of(text.begin(), text.end(), [](unsigned char c) {
        return (c < 0x80 && std::isalnum(c) != 0) || c == '.' || c == '-' || c == '_';
    });
}

void readSegments(const ScenarioNode &node, PostedFile *file)
{
    node.allowAttributes({});
    for (const ScenarioNode &child : node.children()) {
        if (child.name() != "segment") {
            child.failAsUnknown();
        }
        child.allowAttributes({"bytes"});
        file->segments.push_back({child.content(), child.number("bytes")});
    }
}

void readGroups(const ScenarioNode &node, PostedFile *file)
{
    node.allowAttributes({});
    for (const ScenarioNode &child : node.children()) {
        if (child.name() != "group") {
            child.failAsUnknown();
        }
        file->newsgroups.push_back(child.content());
    }
}

PostedFile readFile(const ScenarioNode &node)
{
    if (node.name() != "file") {
        node.failAsUnknown();
    }
    node.allowAttributes({"subject", "poster", "hours-ago"});
    PostedFile file;
    file.subject = node.text("subject");
    file.poster = node.text("poster");
    file.hoursAgo = node.optionalNumber("hours-ago");
    for (const ScenarioNode &child : node.children()) {
        if (child.name() == "groups") {
            readGroups(child, &file);
        } else if (child.name() == "segments") {
            readSegments(child, &file);
        } else {
            child.failAsUnknown();
        }
    }
    return file;
}

} // namespace

FileGroup readFileGroup(const ScenarioNode &node)
{
    node.allowAttributes({"id", "title"});
    FileGroup group;
    group.id = node.text("id");
    group.title = node.text("title", "");
    if (!isWord(group.id)) {
        node.fail("the id of a file group has 1 to 200 letters, digits, dots, hyphens and underscores");
    }
    for (const ScenarioNode &child : node.children()) {
        group.files.push_back(readFile(child));
    }
    return group;
}

} // namespace corvia
