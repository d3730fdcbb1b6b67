// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

/// A mimeapps.list of the MIME Applications Associations rules. Every byte that is not asked to change stays,
/// whatever it is: the file is the user's.
class MimeAppsList {
public:
    explicit MimeAppsList(const QByteArray &bytes);

    /// The desktop entries that @p group lists for @p mimeType, the preferred first.
    QStringList entries(const QByteArray &group, const QString &mimeType) const;
    /// Makes @p entry the default for @p mimeType, for which the list has no default yet.
    void setDefault(const QString &mimeType, const QString &entry);
    QByteArray bytes() const;

private:
    int lineAfterHeader(const QByteArray &header) const;
    QByteArray lineEnd() const;

    QList<QByteArray> m_lines; ///< each with its own end
};
