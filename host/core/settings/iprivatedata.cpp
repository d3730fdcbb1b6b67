// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/iprivatedata.h>

IPrivateData::IPrivateData() = default;

IPrivateData::~IPrivateData() = default;
