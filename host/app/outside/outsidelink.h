// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/hstorageid.h>

#include <QCoreApplication>
#include <QString>

class QUrl;

/// What the desktop, another program or a person at a shell wants to be opened: a link to a group of files, a
/// local file, or nothing that this program opens. Nothing else comes in from outside. A value.
class OutsideLink {
    Q_DECLARE_TR_FUNCTIONS(OutsideLink)
public:
    enum Kind { Refused, FileGroup, File };
    static constexpr int longest = 4096; ///< bytes of a link or of a path, which systems bound alike

    /// @p text is a link or an absolute path; @p ownScheme is the provider's, empty for none.
    static OutsideLink parse(const QString &text, const QString &ownScheme);
    /// @p url has the provider's scheme.
    static OutsideLink parseOwn(const QUrl &url);
    /// What a person wrote at a shell, so that it means the same to a program that runs in another folder:
    /// links stay, and everything else is a file, seen from the current folder.
    static QString absolute(const QString &argument);

    Kind kind() const { return m_kind; }
    /// Of a FileGroup.
    HStorageId fileGroup() const { return m_fileGroup; }
    /// The absolute path of a File, which need not be there.
    QString file() const { return m_file; }
    /// Why it is Refused, as one sentence.
    QString refusal() const { return m_refusal; }

private:
    OutsideLink() = default;
    static OutsideLink refused(const QString &sentence);
    static OutsideLink localFile(const QString &path);

    Kind m_kind = Refused;
    HStorageId m_fileGroup;
    QString m_file;
    QString m_refusal;
};
