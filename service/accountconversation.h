// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "accountdesk.h"
#include "channel.h"
#include "faultswitch.h"
#include "records.h"

namespace corvia {

/// What the account port has for every conversation; all of it outlives them and may be used from any thread.
struct AccountParts {
    AccountDesk &desk;
    FaultSwitch &faults;
    Records &records;
};

/// Serves one client of the account port: HTTP/1.1 requests, one after the other, until the client leaves,
/// the service ends or a fault breaks the connection. Runs in the channel's thread.
void converse(Channel &channel, const AccountParts &parts);

} // namespace corvia
