// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QSqlDatabase>
#include <QString>
#include <QStringList>

/// A database file as a store of bookmarks opens it, for as long as this lives.
class BookmarkFile {
public:
    explicit BookmarkFile(const QString &path);
    ~BookmarkFile();
    Q_DISABLE_COPY(BookmarkFile)

    QSqlDatabase &database() { return m_database; }
    /// False when the statement failed.
    bool run(const QString &statement);
    bool add(const QString &title);
    /// As many titles as fill @p pages of the file.
    bool fill(int pages);
    /// The titles that were added one by one; a single one that says why when they cannot be read.
    QStringList titles();

    static void add(const QString &path, const QString &title);
    static QStringList titlesOf(const QString &path);
    static QByteArray bytesOf(const QString &path);
    static void setBytes(const QString &path, const QByteArray &bytes);

private:
    const QString m_name;
    QSqlDatabase m_database;
};
