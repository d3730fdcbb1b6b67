// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "requests/cvcontext.h"

namespace {

CVContext *theContext = nullptr;

}

CVContext::CVContext() = default;

CVContext::~CVContext() = default;

CVContext *CVContext::instance()
{
    if (!theContext)
        theContext = new CVContext;
    return theContext;
}

void CVContext::updateFromLogin(const HLoginRequest *login)
{
    HContext::updateFromLogin(login);
}
