// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>

#include <chrono>
#include <memory>

class ProfileLock;

/// Sees to it that one program runs with a profile: takes the profile, or tells the program that has it what
/// this one was to open. Made before there is a window, because it waits. GUI thread.
class SingleInstance {
    Q_DECLARE_TR_FUNCTIONS(SingleInstance)
public:
    enum Outcome { Taken, HandedOver, Refused };

    /// @p folder is where the profile's data is.
    explicit SingleInstance(const QString &folder);
    ~SingleInstance();
    Q_DISABLE_COPY(SingleInstance)

    /// Takes the profile and keeps it until the end of this object, or says why not; asks nobody.
    Outcome take();
    /// The same, but a program that has the profile already is asked to come to the front and to open @p
    /// argument, which may be empty. Tries for @p patience: it may be just starting, or just ending.
    Outcome takeOrHandOver(const QString &argument, std::chrono::milliseconds patience);
    /// Why it was Refused, as one sentence.
    QString refusal() const { return m_refusal; }

private:
    const QString m_folder;
    std::unique_ptr<ProfileLock> m_lock;
    QString m_refusal;
};
