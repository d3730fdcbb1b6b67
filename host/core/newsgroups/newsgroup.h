// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QString>

/// One newsgroup, known by its name. A plain value: any thread may copy it.
class HALVORA_CORE_EXPORT Newsgroup {
public:
    /// No newsgroup: an empty name.
    Newsgroup() = default;
    /// @p name is taken as it is; whether a server has such a newsgroup is not known here.
    explicit Newsgroup(QString name);

    QString name() const { return m_name; }
    /// Whether the newsgroup is meant for files, which by custom one of the components of its name says:
    /// "alt.binaries.pictures" is, "alt.binariesless" is not.
    bool isBinary() const;

    /// Names are compared exactly (RFC 5536 section 3.1.4).
    friend bool operator==(const Newsgroup &one, const Newsgroup &other)
    {
        return one.m_name == other.m_name;
    }
    friend bool operator!=(const Newsgroup &one, const Newsgroup &other) { return !(one == other); }

private:
    QString m_name;
};

Q_DECLARE_TYPEINFO(Newsgroup, Q_MOVABLE_TYPE);
