// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "keydirectory.h"
#include "options.h"

#include <memory>
#include <string>

using SSL_CTX = struct ssl_ctx_st;

namespace corvia {

/// The service's own certificate authority and the certificate it issues to the service. Both are made anew
/// at every start (EC P-256, valid for 30 days).
class Authority {
public:
    /// Makes the keys and certificates and writes them to `directory`. False with one sentence in `why`.
    bool issue(Certificate kind, const KeyDirectory &directory, std::string *why);

    /// The file with the authority's certificate in PEM, which a client has to trust.
    std::string file() const;
    /// What the TLS ports speak with; TLS 1.2 at least. Owned by the authority.
    SSL_CTX *context() const;

private:
    struct Freed {
        void operator()(SSL_CTX *context) const;
    };

    std::string file_;
    std::unique_ptr<SSL_CTX, Freed> context_;
};

} // namespace corvia
