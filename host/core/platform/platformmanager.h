// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>
#include <halvora/filetype.h>

#include <QList>
#include <QString>
#include <QStringList>

/// Makes the desktop hand links and files to this program, by the rules of freedesktop.org (Desktop Entry,
/// Shared MIME-info Database, MIME Applications Associations, Base Directory). GUI thread. Nothing here waits
/// for another process, and nothing shows a message: the answer is all that the caller learns.
class HALVORA_CORE_EXPORT PlatformManager {
public:
    PlatformManager();
    virtual ~PlatformManager();
    Q_DISABLE_COPY(PlatformManager)

    /// Whether the desktop entry that was installed for all users offers links of @p scheme (RFC 3986,
    /// section 3.1). False also when an entry of the user's own hides it whose program is gone. Writes
    /// nothing.
    virtual bool registerProtocolForSystem(const QString &scheme, const QString &title);
    /// Offers this program to the user as @p title for links of @p scheme, and makes it the default where the
    /// user has none. An entry that hides the installed one and whose program is gone is taken away. True
    /// when it is the default afterwards; false when the user's own choice stands, the scheme is none, or a
    /// file could not be written.
    virtual bool registerProtocolForUser(const QString &scheme, const QString &title);

    /// The same as registerProtocolForSystem for every one of @p types. Writes nothing.
    virtual bool registerFileTypesForSystem(const QString &description, const QString &title,
                                            const QList<FileType> &types);
    /// The same as registerProtocolForUser for files; also makes the types known, with @p description as what
    /// a file manager calls them. The types of the last call are the ones described.
    virtual bool registerFileTypesForUser(const QString &description, const QString &title,
                                          const QList<FileType> &types);

private:
    static bool offersForSystem(const QStringList &mimeTypes);
    static bool registerForUser(const QString &title, const QStringList &mimeTypes, bool packageReady);
};
