// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

namespace corvia {

/// A multi-line NNTP reply (RFC 3977, section 3.1.1): the status line, the lines with a leading dot doubled,
/// and the line that ends them.
class NewsBlock {
public:
    explicit NewsBlock(const std::string &status);

    NewsBlock &add(const std::string &line);
    NewsBlock &add(const std::vector<std::string> &lines);
    std::string finish();

private:
    std::string text_;
};

} // namespace corvia
