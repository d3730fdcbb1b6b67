// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "newsgrouptablebuilder.h"

#include "lenienttext.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int mostBytes = 512 * 1024 * 1024; // of all lines together, so that positions fit into an int

bool isGap(char c)
{
    return c == ' ' || c == '\t';
}

bool isPlain(const char *bytes, int size)
{
    return std::all_of(bytes, bytes + size, [](char c) { return c > ' ' && c < 0x7F; });
}

/// The name in UTF-8, or nothing when there are characters in it that nobody could see or type.
QByteArray cleanName(const QByteArray &bytes)
{
    const QString name = lenienttext::decode(bytes);
    const bool isClean = std::none_of(name.begin(), name.end(), [](QChar c) {
        return c.isSpace() || c.category() == QChar::Other_Control || c.category() == QChar::Other_Format;
    });
    return isClean ? name.toUtf8() : QByteArray();
}

} // namespace

/// Where the name ends in the line; 0 when the line does not begin with a usable one.
int NewsgroupTableBuilder::addName(const char *line, int size, Entry *entry)
{
    const int end = int(std::find_if(line, line + size, isGap) - line);
    if (end == 0 || end > longestName || m_bytes.size() > mostBytes)
        return 0;
    entry->nameStart = m_bytes.size();
    if (isPlain(line, end))
        m_bytes.append(line, end);
    else
        m_bytes.append(cleanName(QByteArray(line, end)));
    entry->nameSize = m_bytes.size() - entry->nameStart;
    return entry->nameSize > 0 ? end : 0;
}

void NewsgroupTableBuilder::addGroup(const char *line, int size)
{
    Entry entry{};
    if (count() < mostGroups && addName(line, size, &entry) > 0)
        m_groups.push_back(entry);
}

void NewsgroupTableBuilder::addDescription(const char *line, int size)
{
    Entry entry{};
    if (m_descriptions.size() >= std::size_t(mostGroups))
        return;
    const int end = addName(line, size, &entry);
    const char *text = std::find_if_not(line + end, line + size, isGap);
    const int textSize = std::min(int(line + size - text), longestDescription * 4);
    if (end == 0 || textSize <= 0)
        return;
    const QString description = lenienttext::decode(QByteArray(text, textSize));
    entry.textStart = m_bytes.size();
    m_bytes.append(lenienttext::oneLine(description, longestDescription).toUtf8());
    entry.textSize = m_bytes.size() - entry.textStart;
    m_descriptions.push_back(entry);
}

int NewsgroupTableBuilder::compare(const Entry &one, const Entry &other) const
{
    const int common = std::min(one.nameSize, other.nameSize);
    const int order = std::memcmp(m_bytes.constData() + one.nameStart, m_bytes.constData() + other.nameStart,
                                  std::size_t(common));
    return order != 0 ? order : one.nameSize - other.nameSize;
}

void NewsgroupTableBuilder::sort(std::vector<Entry> *entries) const
{
    std::stable_sort(entries->begin(), entries->end(),
                     [this](const Entry &one, const Entry &other) { return compare(one, other) < 0; });
    entries->erase(
        std::unique(entries->begin(), entries->end(),
                    [this](const Entry &one, const Entry &other) { return compare(one, other) == 0; }),
        entries->end());
}

NewsgroupTable NewsgroupTableBuilder::take()
{
    sort(&m_groups);
    sort(&m_descriptions);
    QByteArray text;
    text.reserve(m_bytes.size() + 2 * count());
    auto description = m_descriptions.cbegin();
    for (const Entry &group : m_groups) {
        while (description != m_descriptions.cend() && compare(*description, group) < 0)
            ++description;
        text.append(m_bytes.constData() + group.nameStart, group.nameSize).append('\t');
        if (description != m_descriptions.cend() && compare(*description, group) == 0)
            text.append(m_bytes.constData() + description->textStart, description->textSize);
        text.append('\n');
    }
    *this = NewsgroupTableBuilder();
    return NewsgroupTable(text);
}
