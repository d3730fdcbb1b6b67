// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>

class HContext;

/// Holds the provider's one context for the whole process. GUI thread.
class HALVORA_CONNECTOR_EXPORT HContextHolder {
public:
    /// @p context is not taken over and lives as long as the process.
    static void init(HContext *context);
    /// Null before init().
    static HContext *context();
};
