// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "testidentity.h"

#include <openssl/bio.h>
#include <openssl/ec.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>

namespace {

constexpr long SecondsPerDay = 24L * 60 * 60;

} // namespace

TestIdentity::TestIdentity(const Wish &wish, const TestIdentity *issuer)
    : m_key(EVP_EC_gen("P-256"), EVP_PKEY_free)
    , m_certificate(X509_new(), X509_free)
{
    X509 *made = m_certificate.get();
    X509 *signer = issuer ? issuer->certificate() : made;
    X509_set_version(made, X509_VERSION_3);
    quint32 serial = 0;
    RAND_bytes(reinterpret_cast<unsigned char *>(&serial), sizeof serial);
    ASN1_INTEGER_set_uint64(X509_get_serialNumber(made), serial);
    X509_gmtime_adj(X509_getm_notBefore(made), wish.validFromDays * SecondsPerDay);
    X509_gmtime_adj(X509_getm_notAfter(made), wish.validToDays * SecondsPerDay);
    X509_NAME_add_entry_by_txt(X509_get_subject_name(made), "CN", MBSTRING_UTF8,
                               reinterpret_cast<const unsigned char *>(wish.name.constData()), -1, -1, 0);
    X509_set_issuer_name(made, X509_get_subject_name(signer));
    X509_set_pubkey(made, m_key.get());
    addExtension(NID_basic_constraints, wish.isAuthority ? "critical,CA:TRUE" : "critical,CA:FALSE", signer);
    if (!wish.isAuthority && !wish.alternatives.isEmpty())
        addExtension(NID_subject_alt_name, wish.alternatives, signer);
    X509_sign(made, issuer ? issuer->key() : m_key.get(), EVP_sha256());
}

QByteArray TestIdentity::pem() const
{
    const std::unique_ptr<BIO, decltype(&BIO_free)> memory(BIO_new(BIO_s_mem()), BIO_free);
    PEM_write_bio_X509(memory.get(), m_certificate.get());
    char *bytes = nullptr;
    const long size = BIO_get_mem_data(memory.get(), &bytes);
    return {bytes, static_cast<int>(size)};
}

void TestIdentity::addExtension(int nid, const QByteArray &value, X509 *issuer)
{
    X509V3_CTX context;
    X509V3_set_ctx_nodb(&context);
    X509V3_set_ctx(&context, issuer, m_certificate.get(), nullptr, nullptr, 0);
    const std::unique_ptr<X509_EXTENSION, decltype(&X509_EXTENSION_free)> extension(
        X509V3_EXT_conf_nid(nullptr, &context, nid, value.constData()), X509_EXTENSION_free);
    X509_add_ext(m_certificate.get(), extension.get(), -1);
}
