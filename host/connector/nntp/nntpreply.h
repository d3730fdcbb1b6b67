// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// One line that a news server answered: its code for the program and its text for a person.
class NntpReply {
public:
    /// No reply: code 0 and an empty text.
    NntpReply() = default;
    /// @p line comes without its line end. @p secret, unless empty, is blotted out of the text.
    explicit NntpReply(const QByteArray &line, const QByteArray &secret = QByteArray());

    /// The three-digit code (RFC 3977 section 3.2), or 0 when the line does not begin with one.
    int code() const { return m_code; }
    /// The line as plain text: no control characters, at most 512 characters, code included.
    QString text() const { return m_text; }
    /// Whether the line refuses because the account has all its connections. No code says that, so servers
    /// say it in words.
    bool isTooManyConnections() const;

private:
    int m_code = 0;
    QString m_text;
};
