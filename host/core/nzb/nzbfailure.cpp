// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/nzbfailure.h>

QString NzbFailure::sentence(const QString &name) const
{
    switch (m_kind) {
    case Kind::None:
    case Kind::Interrupted:
        return {};
    case Kind::Missing:
        return tr("There is no file %1; it may have been moved or deleted.").arg(name);
    case Kind::NotPermitted:
        return tr("%1 may not be read; ask its owner for the permission.").arg(name);
    case Kind::Folder:
        return tr("%1 is a folder; open one of the NZB files in it.").arg(name);
    case Kind::NotOrdinary:
        return tr("%1 is no ordinary file and was not opened.").arg(name);
    case Kind::Unreadable:
        return tr("%1 could not be read: %2").arg(name, m_detail);
    case Kind::TooLarge:
        return tr("%1 is too large for an NZB file and was not read.").arg(name);
    case Kind::Empty:
        return tr("%1 is empty; download it again.").arg(name);
    case Kind::NotNzb:
        return tr("%1 is not an NZB file.").arg(name);
    case Kind::Declares:
        return tr("%1 has declarations that no NZB file needs and that may do harm, so it was not read.")
            .arg(name);
    case Kind::Damaged:
        return tr("%1 is damaged in line %2; download it again.").arg(name, QString::number(m_line));
    case Kind::CutOff:
        return tr("%1 breaks off in line %2; download it again.").arg(name, QString::number(m_line));
    case Kind::TooMuch:
        return tr("%1 lists more than can be shown.").arg(name);
    case Kind::NoFiles:
        return tr("%1 is an NZB file, but it lists no files.").arg(name);
    }
    return {};
}
