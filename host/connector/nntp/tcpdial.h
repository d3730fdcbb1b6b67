// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "hostlookup.h"

#include <QtGlobal>

class QString;
class WaitBudget;

/// Opening a TCP connection from a thread that must stay interruptible meanwhile, which QAbstractSocket
/// cannot do without an event loop: its waitForConnected() gives the connection up when it returns.
namespace TcpDial {

/// A connected, non-blocking descriptor that the caller owns, or -1. Tries each address of @p host in turn,
/// each with its share of the time, so that a route that leads nowhere does not hide one that works.
int open(const QString &host, quint16 port, const WaitBudget &budget,
         HostLookup::Resolver resolver = ::getaddrinfo);

} // namespace TcpDial
