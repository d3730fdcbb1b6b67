// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPair>
#include <QString>

/// Keeps the password in the desktop's keyring (QtKeychain). Where no keyring answers, nothing is kept: never
/// in a file. Nothing here waits; GUI thread.
class PasswordStore final : public QObject {
    Q_OBJECT
public:
    explicit PasswordStore(QObject *parent = nullptr);

    /// Answers with found().
    void look(const QString &user);
    /// Does nothing when that is what was found or kept before: a keyring may ask before it takes something.
    void keep(const QString &user, const QString &password);
    void forget(const QString &user);

Q_SIGNALS:
    /// @p password is empty when none is known.
    void found(const QString &user, const QString &password);

private:
    QPair<QString, QString> m_known; ///< user name and password, as the keyring has them
};
