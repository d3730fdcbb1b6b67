// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QString>

/// A tool tip that reads as @p text, whatever markup is in it; of a text of thousands of characters only the
/// first ones. Empty for an empty text.
HALVORA_CORE_EXPORT QString plainToolTip(const QString &text);
