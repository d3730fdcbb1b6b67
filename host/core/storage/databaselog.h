// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(logDatabase)
