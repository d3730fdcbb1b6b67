// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "options.h"

#include <string>

namespace corvia {

/// What the program was asked for.
struct CommandLine {
    Options options;
    std::string scenarioFile; ///< Empty: the demo scenario.
    std::string readyFile;    ///< Empty: none is written.
    bool help = false;
    bool version = false;

    /// Reads the program's arguments. False with one sentence in `why`.
    bool read(int argc, char **argv, std::string *why);

    /// The text of --help.
    static std::string usage();
};

} // namespace corvia
