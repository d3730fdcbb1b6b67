// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>
#include <halvora/urlinfo.h>

#include <QDateTime>
#include <QString>

/// What the account service has to say to the user, as a value; null when there is none. Its texts are plain
/// text, whatever they look like. Any thread.
class HALVORA_CONNECTOR_EXPORT HMessage {
public:
    HMessage() = default;
    /// Unread, and the user may delete it. @p text is made one line, see text().
    HMessage(const QString &uid, const QString &text, const QDateTime &date, const UrlInfo &url);

    bool isNull() const { return m_uid.isEmpty(); }
    /// What the service knows it by; compared exactly.
    QString uid() const { return m_uid; }
    /// One line of at most 2,000 characters; what was longer ends with an ellipsis.
    QString text() const { return m_text; }
    /// UTC; not valid when the service did not tell one and it has not arrived in a list yet.
    QDateTime date() const { return m_date; }
    void setDate(const QDateTime &date);
    /// Null when there is no link. Nobody has looked at where it leads to.
    UrlInfo url() const { return m_url; }

    bool isRead() const { return m_read; }
    void setRead(bool read) { m_read = read; }
    bool isDeletable() const { return m_deletable; }
    void setDeletable(bool deletable) { m_deletable = deletable; }

    bool operator==(const HMessage &other) const;
    bool operator!=(const HMessage &other) const { return !(*this == other); }

private:
    QString m_uid;
    QString m_text;
    QDateTime m_date;
    UrlInfo m_url;
    bool m_read = false;
    bool m_deletable = true;
};

Q_DECLARE_TYPEINFO(HMessage, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(HMessage)
