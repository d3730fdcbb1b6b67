// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hcontextholder.h>

namespace {

HContext *theContext = nullptr;

}

void HContextHolder::init(HContext *context)
{
    theContext = context;
}

HContext *HContextHolder::context()
{
    return theContext;
}
