// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "newsblock.h"

namespace corvia {

NewsBlock::NewsBlock(const std::string &status)
    : text_(status + "\r\n")
{
}

NewsBlock &NewsBlock::add(const std::string &line)
{
    if (!line.empty() && line.front() == '.') {
        text_ += '.';
    }
    text_ += line + "\r\n";
    return *this;
}

NewsBlock &NewsBlock::add(const std::vector<std::string> &lines)
{
    for (const std::string &line : lines) {
        add(line);
    }
    return *this;
}

std::string NewsBlock::finish()
{
    return text_ + ".\r\n";
}

} // namespace corvia
