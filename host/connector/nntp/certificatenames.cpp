// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "certificatenames.h"

#include <QHostAddress>
#include <QSslCertificate>
#include <QStringList>
#include <QUrl>

#include <algorithm>

namespace {

bool isName(const QString &pattern, const QString &host)
{
    const QString lower = pattern.toLower();
    if (!lower.startsWith(QLatin1String("*.")))
        return lower == host;
    const QString domain = lower.mid(1);
    return domain.indexOf(QLatin1Char('.'), 1) > 0 && host.mid(host.indexOf(QLatin1Char('.'))) == domain;
}

} // namespace

bool certificatenames::include(const QSslCertificate &certificate, const QString &host)
{
    const auto names = certificate.subjectAlternativeNames();
    const QHostAddress address(host);
    if (!address.isNull()) {
        const QStringList addresses = names.values(QSsl::IpAddressEntry);
        return std::any_of(addresses.cbegin(), addresses.cend(), [&address](const QString &other) {
            return QHostAddress(other).isEqual(address, QHostAddress::StrictConversion);
        });
    }
    QString name = QString::fromLatin1(QUrl::toAce(host)).toLower();
    if (name.endsWith(QLatin1Char('.')))
        name.chop(1); // of the root
    const QStringList patterns = names.values(QSsl::DnsEntry);
    return !name.isEmpty() && std::any_of(patterns.cbegin(), patterns.cend(),
                                          [&name](const QString &pattern) { return isName(pattern, name); });
}
