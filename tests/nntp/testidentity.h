// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <memory>

#include <openssl/evp.h>
#include <openssl/x509.h>

/// A certificate with its key, made on the spot for one test.
class TestIdentity {
public:
    struct Wish {
        QByteArray name = "localhost"; ///< the subject's common name
        QByteArray alternatives =
            "DNS:localhost";    ///< in the notation of OpenSSL's x509v3_config(5); empty: none
        int validFromDays = -1; ///< counted from now
        int validToDays = 1;
        bool isAuthority = false;
    };

    /// @p issuer signs it; null for one that signs itself.
    explicit TestIdentity(const Wish &wish, const TestIdentity *issuer = nullptr);

    X509 *certificate() const { return m_certificate.get(); }
    EVP_PKEY *key() const { return m_key.get(); }
    /// The certificate alone, as an authority file wants it.
    QByteArray pem() const;

private:
    void addExtension(int nid, const QByteArray &value, X509 *issuer);

    std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> m_key;
    std::unique_ptr<X509, decltype(&X509_free)> m_certificate;
};
