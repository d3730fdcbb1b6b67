// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace corvia {

/// The directory certificates and keys are written to. A temporary one goes with the object.
class KeyDirectory {
public:
    KeyDirectory() = default;
    ~KeyDirectory();
    KeyDirectory(const KeyDirectory &) = delete;
    KeyDirectory &operator=(const KeyDirectory &) = delete;

    /// Takes `directory`, creating it (mode 0700) when missing, or makes a temporary one when it is empty.
    /// False with one sentence in `why`.
    bool open(const std::string &directory, std::string *why);

    std::string pathOf(const std::string &name) const;
    /// Writes the file `name`, readable for its owner alone. False with one sentence in `why`.
    bool write(const std::string &name, const std::string &text, std::string *why) const;

private:
    std::string path_;
    bool temporary_ = false;
};

} // namespace corvia
