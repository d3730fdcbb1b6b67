// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/iprivatedata.h>
#include <halvora/partregistry.h>

/// The parts of the program that keep private data.
class PrivateDataRegistry final : public PartRegistry<IPrivateData> {
public:
    void registerPrivateData(IPrivateData *part) { add(part); }
};
