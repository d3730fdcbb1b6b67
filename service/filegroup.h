// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvia {

/// One article that a posted file was cut into.
struct FileSegment {
    std::string id; ///< Without angle brackets.
    std::int64_t bytes = 0;
};

/// A file as it was posted.
struct PostedFile {
    std::string subject;
    std::string poster;
    std::optional<std::int64_t> hoursAgo; ///< None: it is not told when.
    std::vector<std::string> newsgroups;
    std::vector<FileSegment> segments;
};

/// Files that belong together, which a link can name.
struct FileGroup {
    std::string id; ///< 1 to 200 letters, digits, dots, hyphens and underscores.
    std::string title;
    std::vector<PostedFile> files;
};

} // namespace corvia
