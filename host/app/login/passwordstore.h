// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPair>
#include <QString>

/// Keeps the password in the desktop's keyring (QtKeychain). Without a keyring nothing is kept: never in a
/// file. No operation waits: a keyring may show a prompt, or never reply. What was asked of the keyring goes
/// on when the store is destroyed; its reply is dropped then.
class PasswordStore final : public QObject {
    Q_OBJECT
public:
    explicit PasswordStore(QObject *parent = nullptr);

    /// Replies with found(), unless a later call of any operation supersedes this one.
    void look(const QString &user);
    /// Does nothing when that is what was found or kept before: a keyring may ask before it takes something.
    void keep(const QString &user, const QString &password);
    void forget(const QString &user);
    /// Deletes what is kept, and does not keep these two again before another call of forget().
    void discard(const QString &user, const QString &password);

Q_SIGNALS:
    /// @p password is empty when none is known.
    void found(const QString &user, const QString &password);

private:
    QPair<QString, QString> m_known; ///< user name and password, that need not be kept
    quint64 m_calls = 0;             ///< a reply to an older one is superseded
};
