// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace corvia {

/// The certificate the service shows on both its TLS ports.
enum class Certificate {
    Good,      ///< For localhost and 127.0.0.1, signed by the service's own authority.
    WrongName, ///< Signed by the authority, for another host.
    Expired,   ///< Signed by the authority, out of date since yesterday.
    SelfSigned ///< For localhost and 127.0.0.1, signed by itself.
};

/// How a service is set up. A port of 0 means any free one.
struct Options {
    int accountPort = 0;
    int nntpPort = 0;
    int nntpTlsPort = 0;
    /// Where the authority's and the service's certificates and keys are written; created for its owner alone
    /// when missing. Empty: a fresh temporary one, removed at the end.
    std::string directory;
    Certificate certificate = Certificate::Good;
    bool plainHttp = false; ///< The account port speaks HTTP without TLS.
};

} // namespace corvia
