// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "newsgrouptable.h"

#include <QByteArray>

#include <vector>

/// Makes a table of the lines that a server, or a file that anybody may have written to, gives. Lines that
/// name no newsgroup are left out. One thread.
class NewsgroupTableBuilder {
public:
    /// A name may have as many bytes as fit into a command (RFC 3977 section 3.1).
    static constexpr int longestName = 497;
    static constexpr int longestDescription = 300;
    static constexpr int mostGroups = 1'000'000;

    /// Takes the first word of @p line (RFC 3977 section 7.6.3). Beyond mostGroups nothing is taken any more.
    void addGroup(const char *line, int size);
    /// Takes the name and, behind blanks or tabs, the description (RFC 3977 section 7.6.6). It counts if the
    /// group is added too, before or later; of several the first.
    void addDescription(const char *line, int size);
    int count() const { return int(m_groups.size()); }

    /// The groups sorted, each once. The builder is empty afterwards.
    NewsgroupTable take();

private:
    struct Entry {
        int nameStart;
        int nameSize;
        int textStart;
        int textSize;
    };

    int addName(const char *line, int size, Entry *entry);
    int compare(const Entry &one, const Entry &other) const;
    void sort(std::vector<Entry> *entries) const;

    QByteArray m_bytes; ///< names and descriptions in UTF-8, one behind the other
    std::vector<Entry> m_groups;
    std::vector<Entry> m_descriptions;
};
