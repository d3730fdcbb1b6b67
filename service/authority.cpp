// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "authority.h"

#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>

namespace corvia {

namespace {

struct Free {
    void operator()(EVP_PKEY *key) const { EVP_PKEY_free(key); }
    void operator()(X509 *certificate) const { X509_free(certificate); }
    void operator()(BIO *bio) const { BIO_free(bio); }
    void operator()(X509_EXTENSION *extension) const { X509_EXTENSION_free(extension); }
};
template <typename T> using Owned = std::unique_ptr<T, Free>;

const long day = 86400; // seconds

// What tells one certificate from another.
struct Wanted {
    std::string name;
    const char *alternativeNames; // null: this is the authority
    long validFrom;               // seconds from now
    long validUntil;
};

Wanted wantedLeaf(Certificate kind)
{
    const char *here = "DNS:localhost,IP:127.0.0.1";
    switch (kind) {
    case Certificate::WrongName:
        return {"elsewhere.example", "DNS:elsewhere.example", -day, 29 * day};
    case Certificate::Expired:
        return {"localhost", here, -10 * day, -day};
    default:
        return {"localhost", here, -day, 29 * day};
    }
}

void addExtension(X509 *certificate, X509 *issuer, int nid, const char *value)
{
    X509V3_CTX context;
    X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
    const Owned<X509_EXTENSION> extension(X509V3_EXT_conf_nid(nullptr, &context, nid, value));
    X509_add_ext(certificate, extension.get(), -1);
}

void addExtensions(X509 *certificate, X509 *issuer, const Wanted &wanted)
{
    addExtension(certificate, issuer, NID_subject_key_identifier, "hash");
    if (wanted.alternativeNames == nullptr) {
        addExtension(certificate, issuer, NID_basic_constraints, "critical,CA:TRUE");
        addExtension(certificate, issuer, NID_key_usage, "critical,keyCertSign,cRLSign");
        return;
    }
    addExtension(certificate, issuer, NID_basic_constraints, "critical,CA:FALSE");
    addExtension(certificate, issuer, NID_key_usage, "critical,digitalSignature");
    addExtension(certificate, issuer, NID_ext_key_usage, "serverAuth");
    addExtension(certificate, issuer, NID_authority_key_identifier, "keyid");
    addExtension(certificate, issuer, NID_subject_alt_name, wanted.alternativeNames);
}

// Of two authorities with one name, a client that trusts the wrong one would see a forgery, not a stranger.
Wanted wantedAuthority()
{
    unsigned char bytes[4];
    RAND_bytes(bytes, sizeof bytes);
    std::string name = "Corvia test authority";
    for (const unsigned char byte : bytes) {
        name += ' ' + std::to_string(byte);
    }
    return {name, nullptr, -day, 29 * day};
}

void setSerial(X509 *certificate)
{
    unsigned char bytes[8];
    RAND_bytes(bytes, sizeof bytes);
    std::unique_ptr<BIGNUM, void (*)(BIGNUM *)> number(BN_bin2bn(bytes, sizeof bytes, nullptr), BN_free);
    BN_to_ASN1_INTEGER(number.get(), X509_get_serialNumber(certificate));
}

// Without an issuer the certificate signs itself.
Owned<X509> makeCertificate(EVP_PKEY *key, const Wanted &wanted, X509 *issuer, EVP_PKEY *issuerKey)
{
    Owned<X509> certificate(X509_new());
    X509 *signer = issuer != nullptr ? issuer : certificate.get();
    X509_set_version(certificate.get(), X509_VERSION_3);
    setSerial(certificate.get());
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), wanted.validFrom);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), wanted.validUntil);
    const auto *name = reinterpret_cast<const unsigned char *>(wanted.name.c_str());
    X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate.get()), "CN", MBSTRING_UTF8, name, -1, -1,
                               0);
    X509_set_issuer_name(certificate.get(), X509_get_subject_name(signer));
    X509_set_pubkey(certificate.get(), key);
    addExtensions(certificate.get(), signer, wanted);
    X509_sign(certificate.get(), issuer != nullptr ? issuerKey : key, EVP_sha256());
    return certificate;
}

std::string textOf(BIO *bio)
{
    char *data = nullptr;
    const long size = BIO_get_mem_data(bio, &data);
    return {data, static_cast<std::size_t>(size)};
}

std::string pemOf(X509 *certificate)
{
    const Owned<BIO> bio(BIO_new(BIO_s_mem()));
    PEM_write_bio_X509(bio.get(), certificate);
    return textOf(bio.get());
}

std::string pemOf(EVP_PKEY *key)
{
    const Owned<BIO> bio(BIO_new(BIO_s_mem()));
    PEM_write_bio_PrivateKey(bio.get(), key, nullptr, nullptr, 0, nullptr, nullptr);
    return textOf(bio.get());
}

} // namespace

void Authority::Freed::operator()(SSL_CTX *context) const
{
    SSL_CTX_free(context);
}

bool Authority::issue(Certificate kind, const KeyDirectory &directory, std::string *why)
{
    const Owned<EVP_PKEY> caKey(EVP_EC_gen("P-256"));
    const Owned<EVP_PKEY> key(EVP_EC_gen("P-256"));
    const Owned<X509> ca = makeCertificate(caKey.get(), wantedAuthority(), nullptr, nullptr);
    X509 *issuer = kind == Certificate::SelfSigned ? nullptr : ca.get();
    const Owned<X509> leaf = makeCertificate(key.get(), wantedLeaf(kind), issuer, caKey.get());

    context_.reset(SSL_CTX_new(TLS_server_method()));
    SSL_CTX_set_min_proto_version(context_.get(), TLS1_2_VERSION);
    SSL_CTX_set_mode(context_.get(), SSL_MODE_ENABLE_PARTIAL_WRITE | SSL_MODE_ACCEPT_MOVING_WRITE_BUFFER);
    if (SSL_CTX_use_certificate(context_.get(), leaf.get()) != 1 ||
        SSL_CTX_use_PrivateKey(context_.get(), key.get()) != 1) {
        *why = "Cannot make a certificate for the service.";
        return false;
    }
    file_ = directory.pathOf("authority.pem");
    return directory.write("authority.pem", pemOf(ca.get()), why) &&
           directory.write("authority.key", pemOf(caKey.get()), why) &&
           directory.write("service.pem", pemOf(leaf.get()), why) &&
           directory.write("service.key", pemOf(key.get()), why);
}

std::string Authority::file() const
{
    return file_;
}

SSL_CTX *Authority::context() const
{
    return context_.get();
}

} // namespace corvia
