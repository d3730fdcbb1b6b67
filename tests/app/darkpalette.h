// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

/// The colours of a dark desktop.
QPalette darkPalette();
