// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QTest>

// Included ahead of every test. Qt's own five seconds are too few where every allocation is followed to its
// caller on a busy machine; a test that passes does not wait any longer for this.
#undef QTRY_VERIFY
#undef QTRY_COMPARE
#define QTRY_VERIFY(expression) QTRY_VERIFY_WITH_TIMEOUT((expression), 60'000)
#define QTRY_COMPARE(expression, expected) QTRY_COMPARE_WITH_TIMEOUT((expression), (expected), 60'000)
