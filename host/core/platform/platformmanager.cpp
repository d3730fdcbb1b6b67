// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/platformmanager.h>

#include "desktopentry.h"
#include "fileupdate.h"
#include "mimedefaults.h"
#include "mimepackage.h"
#include "xdgpaths.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <algorithm>

namespace {

/// The type under which links of @p scheme are known, nothing when it is no scheme.
QStringList schemeTypes(const QString &scheme)
{
    static const QRegularExpression valid(QStringLiteral("\\A[A-Za-z][A-Za-z0-9+.-]{0,63}\\z"));
    if (!valid.match(scheme).hasMatch())
        return {};
    return {QStringLiteral("x-scheme-handler/") + scheme.toLower()};
}

/// The MIME types of @p types, nothing when one of them is not valid.
QStringList mimeTypes(const QList<FileType> &types)
{
    QStringList names;
    for (const FileType &type : types) {
        if (!MimePackage::isValid(type))
            return {};
        if (!names.contains(type.mimeType().toLower()))
            names.append(type.mimeType().toLower());
    }
    return names;
}

/// Brings a cache of the desktop's up to date, some time. Without the tool the desktop does so itself.
void refresh(const QString &tool, const QString &folder)
{
    QProcess process;
    process.setProgram(QStandardPaths::findExecutable(tool));
    if (process.program().isEmpty())
        return;
    process.setArguments({folder});
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.startDetached();
}

void addMissing(QStringList *types, const QStringList &more)
{
    for (const QString &type : more) {
        if (MimePackage::isValidMimeType(type) && !types->contains(type))
            types->append(type);
    }
}

/// What the user's entry has to offer: all that it offers now, what the entry that it hides offers, and
/// @p more.
QStringList offered(const QStringList &more)
{
    QStringList types;
    addMissing(&types, DesktopEntry::mimeTypes(DesktopEntry::path(XdgPaths::dataHome())));
    const QStringList folders = XdgPaths::systemData();
    for (const QString &folder : folders)
        addMissing(&types, DesktopEntry::mimeTypes(DesktopEntry::path(folder)));
    addMissing(&types, more);
    return types;
}

/// Whether the entry that was installed for all users offers all of @p mimeTypes.
bool isInstalledFor(const QStringList &mimeTypes)
{
    if (mimeTypes.isEmpty())
        return false;
    const QStringList folders = XdgPaths::systemData();
    for (const QString &folder : folders) {
        const QString file = DesktopEntry::path(folder);
        if (!QFile::exists(file))
            continue;
        // An entry hides those of the same name in less important folders, whatever it offers.
        const QStringList types = DesktopEntry::mimeTypes(file);
        return std::all_of(mimeTypes.begin(), mimeTypes.end(),
                           [&types](const QString &type) { return types.contains(type); });
    }
    return false;
}

/// Makes the user's entry offer @p mimeTypes, or takes it away where the installed one does and the user's
/// own leads nowhere: it was written by a program that has been moved or removed since.
FileUpdate::Result bringEntryUpToDate(const QString &title, const QStringList &mimeTypes)
{
    const QString own = DesktopEntry::path(XdgPaths::dataHome());
    if (isInstalledFor(mimeTypes) && DesktopEntry::startsWhatIsGone(own))
        return QFile::remove(own) ? FileUpdate::Result::Written : FileUpdate::Result::Failed;
    return FileUpdate::write(
        own, DesktopEntry::compose(title, QCoreApplication::applicationFilePath(), offered(mimeTypes)));
}

} // namespace

PlatformManager::PlatformManager() = default;

PlatformManager::~PlatformManager() = default;

bool PlatformManager::registerProtocolForSystem(const QString &scheme, const QString &title)
{
    Q_UNUSED(title)
    return offersForSystem(schemeTypes(scheme));
}

bool PlatformManager::registerProtocolForUser(const QString &scheme, const QString &title)
{
    return registerForUser(title, schemeTypes(scheme), true);
}

bool PlatformManager::registerFileTypesForSystem(const QString &description, const QString &title,
                                                 const QList<FileType> &types)
{
    Q_UNUSED(description)
    Q_UNUSED(title)
    return offersForSystem(mimeTypes(types));
}

bool PlatformManager::registerFileTypesForUser(const QString &description, const QString &title,
                                               const QList<FileType> &types)
{
    const QStringList names = mimeTypes(types);
    if (names.isEmpty())
        return false;
    const QString dataHome = XdgPaths::dataHome();
    const auto package =
        FileUpdate::write(MimePackage::path(dataHome), MimePackage::compose(description, types));
    if (package == FileUpdate::Result::Written)
        refresh(QStringLiteral("update-mime-database"), dataHome + QStringLiteral("/mime"));
    return registerForUser(title, names, package != FileUpdate::Result::Failed);
}

bool PlatformManager::offersForSystem(const QStringList &mimeTypes)
{
    return isInstalledFor(mimeTypes) &&
           !DesktopEntry::startsWhatIsGone(DesktopEntry::path(XdgPaths::dataHome()));
}

bool PlatformManager::registerForUser(const QString &title, const QStringList &mimeTypes, bool packageReady)
{
    if (mimeTypes.isEmpty())
        return false;
    const FileUpdate::Result result = bringEntryUpToDate(title, mimeTypes);
    if (result == FileUpdate::Result::Failed)
        return false; // a default must not name an entry that is not there
    if (result == FileUpdate::Result::Written)
        refresh(QStringLiteral("update-desktop-database"),
                XdgPaths::dataHome() + QStringLiteral("/applications"));
    return MimeDefaults::claim(mimeTypes, DesktopEntry::id()) && packageReady;
}
