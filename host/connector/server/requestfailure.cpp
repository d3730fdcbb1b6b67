// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/requestfailure.h>

bool RequestFailure::isServiceLost() const
{
    switch (m_kind) {
    case Kind::NoService:
    case Kind::Unreachable:
    case Kind::TimedOut:
    case Kind::NotTrusted:
        return true;
    default:
        return false;
    }
}

bool RequestFailure::isAddressToBlame() const
{
    switch (m_kind) {
    case Kind::BadStatus:
    case Kind::TooLarge:
    case Kind::Truncated:
    case Kind::BadReply:
        return true;
    default:
        return isServiceLost();
    }
}

QString RequestFailure::sentence() const
{
    switch (m_kind) {
    case Kind::None:
        return {};
    case Kind::ShuttingDown:
        return tr("The program is being closed.");
    case Kind::LoggedOut:
        return tr("The account was logged out.");
    case Kind::NoService:
        return tr("No account service is reachable.");
    case Kind::Unreachable:
        return tr("The account service can not be reached.");
    case Kind::TimedOut:
        return tr("The account service does not answer.");
    case Kind::NotTrusted:
        return tr("The account service can not prove its identity, so nothing was sent to it.");
    case Kind::BadStatus:
        return tr("The account service answered with status %1 and could not be used.").arg(m_detail);
    case Kind::TooLarge:
        return tr("The account service sent a reply that is too large.");
    case Kind::Truncated:
        return tr("The account service's reply broke off.");
    case Kind::BadReply:
        return tr("The account service's reply cannot be read.");
    case Kind::CredentialsTest:
        return m_detail.isEmpty()
                   ? tr("No news server could be reached to test the user name and the password.")
                   : tr("The news server did not accept the user name and the password.");
    case Kind::RefusedCredentials:
        return m_detail.isEmpty() ? tr("The account service did not accept the user name and the password.")
                                  : m_detail;
    case Kind::RefusedSession:
        return tr("The account service asks to log in again.");
    case Kind::Refused:
        return m_detail.isEmpty() ? tr("The account service refused the request.") : m_detail;
    case Kind::UnwritableRequest:
        return tr("A request holds a character that cannot be sent, so it was not sent.");
    case Kind::Unwritable:
        return tr("The user name or the password holds a character that can not be sent.");
    }
    return {};
}
