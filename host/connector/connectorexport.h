// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#ifdef HALVORA_CONNECTOR_BUILD
#define HALVORA_CONNECTOR_EXPORT Q_DECL_EXPORT
#else
#define HALVORA_CONNECTOR_EXPORT Q_DECL_IMPORT
#endif
