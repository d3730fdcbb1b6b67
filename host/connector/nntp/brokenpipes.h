// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

/// For the rest of the calling thread's life a peer that goes while it is written to is an error of the
/// write, not a signal. OpenSSL writes with write(2), and libcurl was told to leave signals alone.
void keepBrokenPipesQuiet();
