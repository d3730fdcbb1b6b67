// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

class QSslCertificate;
class QString;

/// Whom a certificate is for, by its subject alternative names alone (RFC 9525): Qt and libcurl also accept
/// the subject's common name, which no authority has to check as a host name. Any thread.
namespace certificatenames {

/// Whether @p host, a name or an address, is among them. A wildcard stands for the whole first label of a
/// name that has at least two more.
bool include(const QSslCertificate &certificate, const QString &host);

} // namespace certificatenames
