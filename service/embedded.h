// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace corvia {

// The texts built into the library. Their definitions are written at build time from the files themselves.

/// The RELAX NG schema of a request document.
std::string requestSchema();

/// The RELAX NG schema of a reply document.
std::string replySchema();

/// The scenario the program plays when it is given none.
std::string demoScenarioText();

} // namespace corvia
