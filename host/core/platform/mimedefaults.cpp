// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "mimedefaults.h"

#include "fileupdate.h"
#include "mimeappslist.h"
#include "xdgpaths.h"

#include <QFile>

namespace {

QString ownList()
{
    return XdgPaths::configHome() + QStringLiteral("/mimeapps.list");
}

/// The user's lists in the order in which a desktop asks them.
QStringList userLists()
{
    QStringList names;
    const QStringList desktops = XdgPaths::desktops();
    for (const QString &desktop : desktops) {
        if (!desktop.contains(QLatin1Char('/')))
            names.append(desktop + QStringLiteral("-mimeapps.list"));
    }
    names.append(QStringLiteral("mimeapps.list"));

    QStringList lists;
    for (const QString &folder :
         {XdgPaths::configHome(), XdgPaths::dataHome() + QStringLiteral("/applications")}) {
        for (const QString &name : qAsConst(names))
            lists.append(folder + QLatin1Char('/') + name);
    }
    return lists;
}

bool isInstalled(const QString &entry)
{
    QStringList folders = XdgPaths::systemData();
    folders.prepend(XdgPaths::dataHome());
    for (const QString &folder : qAsConst(folders)) {
        if (QFile::exists(folder + QStringLiteral("/applications/") + entry))
            return true;
    }
    return false;
}

/// The entry that a desktop takes from @p entries, which is the first that is there.
QString effective(const QStringList &entries)
{
    for (const QString &entry : entries) {
        if (isInstalled(entry))
            return entry;
    }
    return {};
}

} // namespace

bool MimeDefaults::claim(const QStringList &mimeTypes, const QString &entry)
{
    QStringList unclaimed;
    bool allOurs = true;
    for (const QString &mimeType : mimeTypes) {
        const Choice present = choice(mimeType, entry);
        if (present == Choice::None)
            unclaimed.append(mimeType);
        allOurs = allOurs && present != Choice::Other;
    }
    const bool written = unclaimed.isEmpty() || write(unclaimed, entry);
    return allOurs && written;
}

MimeDefaults::Choice MimeDefaults::choice(const QString &mimeType, const QString &entry)
{
    const QStringList lists = userLists();
    for (const QString &file : lists) {
        QByteArray bytes;
        if (!FileUpdate::read(file, &bytes))
            return Choice::Other; // what it says is unknown, so nothing may be decided over it
        const MimeAppsList list(bytes);
        const QStringList defaults = list.entries("Default Applications", mimeType);
        if (!defaults.isEmpty())
            return effective(defaults) == entry ? Choice::Ours : Choice::Other;
        if (list.entries("Removed Associations", mimeType).contains(entry))
            return Choice::Other;
    }
    return Choice::None;
}

bool MimeDefaults::write(const QStringList &mimeTypes, const QString &entry)
{
    QByteArray bytes;
    if (!FileUpdate::read(ownList(), &bytes))
        return false;
    MimeAppsList list(bytes);
    for (const QString &mimeType : mimeTypes)
        list.setDefault(mimeType, entry);
    return FileUpdate::write(ownList(), list.bytes()) != FileUpdate::Result::Failed;
}
