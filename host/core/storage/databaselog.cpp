// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "databaselog.h"

Q_LOGGING_CATEGORY(logDatabase, "halvora.database")
