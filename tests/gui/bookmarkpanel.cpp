// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkpanel.h"

#include "stage.h"

#include <halvora/connectorplugin.h>
#include <halvora/storagemanager.h>

#include <QDialog>
#include <QDockWidget>
#include <QLineEdit>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTreeView>

BookmarkPanel::BookmarkPanel(Stage &stage)
    : m_stage(stage)
{
}

QTreeView *BookmarkPanel::view() const
{
    const auto *dock = m_stage.program().find<QDockWidget>("CVBookmarksDock");
    return dock ? dock->findChild<QTreeView *>() : nullptr;
}

QModelIndex BookmarkPanel::index(const QString &folder, const QString &name) const
{
    const QModelIndex parent = folder.isEmpty() ? QModelIndex() : index(QString(), folder);
    if (!view() || (!folder.isEmpty() && !parent.isValid()))
        return {};
    const QAbstractItemModel *model = view()->model();
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex child = model->index(row, 0, parent);
        if (child.data(Qt::EditRole).toString() == name)
            return child;
    }
    return {};
}

QStringList BookmarkPanel::names(const QString &folder) const
{
    const QModelIndex parent = folder.isEmpty() ? QModelIndex() : index(QString(), folder);
    QStringList found;
    if (!view() || (!folder.isEmpty() && !parent.isValid()))
        return found;
    const QAbstractItemModel *model = view()->model();
    for (int row = 0; row < model->rowCount(parent); ++row)
        found.append(model->index(row, 0, parent).data(Qt::EditRole).toString());
    return found;
}

bool BookmarkPanel::isUnfolded(const QString &folder) const
{
    return view()->isExpanded(index(QString(), folder));
}

QString BookmarkPanel::current() const
{
    return view()->currentIndex().data(Qt::EditRole).toString();
}

bool BookmarkPanel::isBeingRenamed() const
{
    const auto *editor = view()->findChild<QLineEdit *>();
    return editor && editor->isVisible() && editor->hasFocus();
}

Spot BookmarkPanel::row(const QString &folder, const QString &name, double part) const
{
    return rowOf(
        name, [this] { return view(); }, [this, folder, name] { return index(folder, name); }, part);
}

Spot BookmarkPanel::folder(const QString &name, double part) const
{
    return row(QString(), name, part);
}

Spot BookmarkPanel::emptyArea() const
{
    const auto find = [this]() -> std::optional<QPoint> {
        const QTreeView *tree = view();
        const QRect area = tree ? tree->viewport()->rect() : QRect();
        const QPoint point(area.center().x(), area.bottom() - 10);
        if (!tree || tree->indexAt(point).isValid())
            return std::nullopt;
        return tree->viewport()->mapToGlobal(point);
    };
    return {QStringLiteral("the empty area below the bookmarks"), find};
}

Spot BookmarkPanel::arrow(const QString &folder) const
{
    const auto find = [this, folder]() -> std::optional<QPoint> {
        const QModelIndex wanted = index(QString(), folder);
        if (!wanted.isValid() || !view()->model()->hasChildren(wanted))
            return std::nullopt;
        const QRect row = view()->visualRect(wanted);
        return view()->viewport()->mapToGlobal(
            QPoint(row.left() - view()->indentation() / 2, row.center().y()));
    };
    return {QStringLiteral("the arrow of “%1”").arg(folder), find};
}

void BookmarkPanel::unfold(Person &person, const QString &folder) const
{
    if (!person.learns<bool>([this, &folder] { return isUnfolded(folder); }))
        person.clickOn(arrow(folder));
    person.sees(QStringLiteral("“%1” is open").arg(folder), [this, &folder] { return isUnfolded(folder); });
}

void BookmarkPanel::fold(Person &person, const QString &folder) const
{
    if (person.learns<bool>([this, &folder] { return isUnfolded(folder); }))
        person.clickOn(arrow(folder));
    person.sees(QStringLiteral("“%1” is closed").arg(folder),
                [this, &folder] { return !isUnfolded(folder); });
}

void BookmarkPanel::logIn(Person &person) const
{
    person.ask([this] { m_stage.program().logIn(QStringLiteral("demo"), QStringLiteral("pinegate")); });
    person.sees(QStringLiteral("the account's bookmarks"), [this] {
        return !m_stage.program().find<QDialog>("LoginDialog") && !names(QString()).isEmpty();
    });
}

void BookmarkPanel::expect(Person &person, const QString &folder, const QStringList &expected) const
{
    const QString place = folder.isEmpty() ? QStringLiteral("the panel") : QStringLiteral("“%1”").arg(folder);
    const QString wanted = expected.join(QStringLiteral(", "));
    person.sees(QStringLiteral("%1 shows %2").arg(place, wanted),
                [this, &folder, &expected] { return names(folder) == expected; });
    person.sees(QStringLiteral("%1 keeps %2").arg(place, wanted),
                [this, &folder, &expected] { return storedNames(folder) == expected; });
}

QList<QStringList> BookmarkPanel::query(const QString &statement, const QStringList &values) const
{
    RunningProgram &program = m_stage.program();
    QList<QStringList> rows;
    const QString connection = QStringLiteral("BookmarkPanel");
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        database.setDatabaseName(program.application().core()->storage()->databasePath(
            program.application().connectorPlugin()->configName()));
        database.open();
        QSqlQuery query(database);
        query.prepare(statement);
        for (const QString &value : values)
            query.addBindValue(value);
        query.exec();
        while (query.next())
            rows.append({query.value(0).toString(), query.value(1).toString()});
    }
    QSqlDatabase::removeDatabase(connection);
    return rows;
}

QStringList BookmarkPanel::storedNames(const QString &folder) const
{
    const QString names =
        QStringLiteral("SELECT COALESCE(bookmark_newsgroup, bookmark_name), bookmark_id FROM bookmarks ");
    const QString order = QStringLiteral(" ORDER BY bookmark_order");
    const QString inside = QStringLiteral("WHERE parent_id = (SELECT bookmark_id FROM bookmarks "
                                          "WHERE bookmark_name = ? AND parent_id IS NULL)");
    const QList<QStringList> rows = folder.isEmpty()
                                        ? query(names + QStringLiteral("WHERE parent_id IS NULL") + order, {})
                                        : query(names + inside + order, {folder});
    QStringList found;
    for (const QStringList &row : rows)
        found.append(row.first());
    return found;
}

QString BookmarkPanel::stored(const QString &name, const QString &column) const
{
    const QList<QStringList> rows =
        query(QStringLiteral("SELECT %1, bookmark_id FROM bookmarks WHERE bookmark_name "
                             "= ? OR bookmark_newsgroup = ?")
                  .arg(column),
              {name, name});
    return rows.size() == 1 ? rows.first().first() : QStringLiteral("(%1 rows)").arg(rows.size());
}
