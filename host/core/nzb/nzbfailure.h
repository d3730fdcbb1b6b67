// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QCoreApplication>
#include <QString>

/// Why an NZB file can not be shown. A value, made on any thread.
class HALVORA_CORE_EXPORT NzbFailure {
    Q_DECLARE_TR_FUNCTIONS(NzbFailure)
public:
    enum class Kind {
        None,
        Interrupted,  ///< nobody wants it any more
        Missing,      ///< there is nothing of that name
        NotPermitted, ///< the user may not read it
        Folder,
        NotOrdinary, ///< a pipe, a device or a socket
        Unreadable,  ///< the disk or the system refused; the detail is the system's reason
        TooLarge,
        Empty,
        NotNzb,   ///< no XML, or the XML of something else
        Declares, ///< its document type declares entities or elements
        Damaged,  ///< wrong XML, in line()
        CutOff,   ///< ends too early, in line()
        TooMuch,  ///< more files or segments than can be shown
        NoFiles,
    };

    NzbFailure() = default;
    NzbFailure(Kind kind, int line = 0)
        : m_kind(kind)
        , m_line(line)
    {
    }
    NzbFailure(Kind kind, const QString &detail)
        : m_kind(kind)
        , m_detail(detail)
    {
    }

    bool isNull() const { return m_kind == Kind::None; }
    Kind kind() const { return m_kind; }
    /// From 1, where the kind has one.
    int line() const { return m_line; }
    /// One sentence for a person, in the current language, about the file that @p name names. Plain text. GUI
    /// thread.
    QString sentence(const QString &name) const;

private:
    Kind m_kind = Kind::None;
    int m_line = 0;
    QString m_detail;
};
