// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

/// How much smaller the largest inputs are in a build with sanitizers, in which each allocation is a hundred
/// times as dear; what is looked for there does not depend on the size.
#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
constexpr int sanitizedShare = 16;
#else
constexpr int sanitizedShare = 1;
#endif
#else
constexpr int sanitizedShare = 1;
#endif
