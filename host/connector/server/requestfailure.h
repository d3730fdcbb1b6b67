// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>

#include <QCoreApplication>
#include <QString>

/// Why a request was not successful. A value, made on the server's worker, read on the GUI thread.
class HALVORA_CONNECTOR_EXPORT RequestFailure {
    Q_DECLARE_TR_FUNCTIONS(RequestFailure)
public:
    enum class Kind {
        None,
        ShuttingDown,       ///< the program ends
        LoggedOut,          ///< the account was logged out meanwhile
        NoService,          ///< no account service is known, or its name can not exist
        Unreachable,        ///< no connection, or it broke
        TimedOut,           ///< the deadline passed without a reply
        NotTrusted,         ///< TLS: certificate, host name or protocol
        BadStatus,          ///< another HTTP status than 200; the detail is the status
        TooLarge,           ///< reply or its headers beyond the limits
        Truncated,          ///< the reply ended early
        BadReply,           ///< not the XML that is expected, or not read in time; the detail says what
        CredentialsTest,    ///< prepare() refused; the detail is the news server's last line
        RefusedCredentials, ///< the service does not know user name and password; the detail is its sentence
        RefusedSession,     ///< the session word is no longer good
        Refused,            ///< any other refusal of the service; the detail is its sentence
        UnwritableRequest,  ///< a request other than a login would hold what XML cannot carry
        Unwritable,         ///< the login would hold what XML cannot carry
    };

    RequestFailure() = default;
    RequestFailure(Kind kind, const QString &detail = QString())
        : m_kind(kind)
        , m_detail(detail)
    {
    }

    bool isNull() const { return m_kind == Kind::None; }
    Kind kind() const { return m_kind; }
    QString detail() const { return m_detail; }
    /// Whether another attempt may succeed when the service is back, without anybody's doing.
    bool isServiceLost() const;
    /// Whether the address is to blame, so that the next request takes the next one.
    bool isAddressToBlame() const;
    /// One sentence for a person, in the current language. GUI thread.
    QString sentence() const;

private:
    Kind m_kind = Kind::None;
    QString m_detail;
};
