// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "sqlitefile.h"

#include <QStringList>
#include <QVector>

#include <memory>
#include <utility>
#include <vector>

struct OracleItem;
using OracleList = std::vector<std::unique_ptr<OracleItem>>;

/// A folder or a bookmark as the oracle has it in memory.
struct OracleItem {
    int serial = 0; ///< of this item and no other, also of none with the same row
    bool isFolder = false;
    bool isExpanded = false;
    bool isLoaded = false;
    qint64 id = -1;
    qint64 parentId = -1;
    QString name;
    QString color;
    OracleItem *parent = nullptr;
    OracleList children;
};

/// A folder to import, or what is in one.
struct OracleImport {
    bool isFolder = true;
    QString name;
    QVector<OracleImport> children;
};

/// What the bookmark model has to do, said as plainly as possible and sharing nothing with it: every write
/// stores the places of all siblings, one statement each, whatever is known about them. Failures are ignored.
class BookmarkOracle {
public:
    /// Makes the file at @p path. With @p looks, somebody reads the whole tree before and after each change.
    BookmarkOracle(const QString &path, bool looks);
    ~BookmarkOracle();

    SqliteFile &file() { return *m_file; }
    const OracleList &topLevel() const { return m_topLevel; }
    /// Of @p parent, or the top for null.
    OracleList &siblings(OracleItem *parent) { return parent ? parent->children : m_topLevel; }
    int rowOf(const OracleItem *item);
    /// The newsgroups that the program takes for bookmarked.
    const QStringList &newsgroups() const { return m_newsgroups; }
    /// What model and provider have to signal, since the last call.
    QStringList takeSignals() { return std::exchange(m_signals, {}); }

    /// Commits first what a failed COMMIT left open.
    void reopen();
    void look();
    void touch(OracleItem *item);

    void load();
    void clear();
    void addFolder(OracleItem *parent);
    void addBookmarks(const QStringList &names, OracleItem *chosen);
    void rename(OracleItem *item, const QString &name);
    void setColor(OracleItem *item, const QString &name);
    void setExpanded(OracleItem *item, bool expanded);
    void remove(OracleItem *item);
    void dropNewsgroups(const QStringList &names, int row, OracleItem *folder);
    bool dropBookmarks(const QVector<qint64> &ids, int row, OracleItem *folder);
    void removeRows(int row, int count, OracleItem *parent);
    void import(const QVector<OracleImport> &folders);

private:
    std::unique_ptr<OracleItem> make(bool isFolder, const QString &name, OracleItem *parent);
    OracleList select(const char *statement, std::initializer_list<SqlValue> values, OracleItem *parent);
    void lookBelow(OracleItem *parent);
    void lookIfWatched();
    void insert(std::unique_ptr<OracleItem> item, int row);
    void save(OracleItem *item);
    void write(OracleItem *item);
    void renumber(OracleItem *parent);
    void deleteRows(OracleItem *item);
    void signal(const char *what, const OracleItem *parent, int first, int last);

    const QString m_path;
    const bool m_looks;
    int m_lastSerial = 0;
    std::unique_ptr<SqliteFile> m_file;
    OracleList m_topLevel;
    QStringList m_newsgroups;
    QStringList m_signals;
};
