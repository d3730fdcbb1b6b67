// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#ifdef HALVORA_CORE_BUILD
#define HALVORA_CORE_EXPORT Q_DECL_EXPORT
#else
#define HALVORA_CORE_EXPORT Q_DECL_IMPORT
#endif
