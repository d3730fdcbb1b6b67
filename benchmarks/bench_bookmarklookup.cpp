// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkstore.h"
#include "figures.h"
#include "rawbookmarks.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/cvbookmarkprovider.h"
#include "bookmarks/bookmarkpayload.h"
#include "connector/cvconnectorplugin.h"

#include <QApplication>
#include <QMimeData>

#include <algorithm>
#include <cstdio>

// What is asked for every row of a long list, or on every move of the pointer, beside the plain search.
namespace {

int answers = 0; // keeps what is measured from being left out

void ask(int bookmarks)
{
    constexpr int groups = 110'000;
    BookmarkStore store;
    QStringList asked;
    QStringList bookmarked;
    for (int number = 0; number < groups; ++number)
        asked.append(benchmarkNewsgroup(number));
    for (int number = 0; number < bookmarks; ++number)
        bookmarked.append(benchmarkNewsgroup(number * (groups / bookmarks)));
    store.model().provider()->setBookmarkedNewsgroups(bookmarked);
    const CVBookmarkProvider *provider = store.model().provider();
    const QStringList list = provider->bookmarkedNewsgroups();
    QVector<double> ours;
    QVector<double> linear;
    for (int round = 0; round < 9; ++round) {
        ours.append(milliseconds([&] {
            for (const QString &name : asked)
                answers += int(provider->isBookmarked(name));
        }));
        linear.append(milliseconds([&] {
            for (const QString &name : asked)
                answers += int(list.contains(name));
        }));
    }
    std::printf("isBookmarked, 110,000 names, %5d bookmarks       %9.2f %9.2f %8.1f x   %s\n", bookmarks,
                median(ours), median(linear), median(linear) / median(ours),
                bookmarks == 1000 ? "at least 20 x" : "at least 1 x");
}

QList<BookmarkItem *> newBookmarks(BookmarkItem *folder, int from, int count)
{
    QList<BookmarkItem *> bookmarks;
    for (int number = from; number < from + count; ++number) {
        auto *bookmark = new BookmarkItem(BookmarkKind::Bookmark, folder);
        bookmark->setName(benchmarkNewsgroup(number));
        bookmarks.append(bookmark);
    }
    return bookmarks;
}

void drop(int count)
{
    BookmarkStore store;
    const QModelIndex folder = store.addFolder(QStringLiteral("folder"));
    BookmarkItem *target = store.model().itemFromIndex(folder);
    target->appendNewChildren(newBookmarks(target, 0, count));
    BookmarkItem elsewhere(BookmarkKind::Folder, nullptr);
    elsewhere.appendNewChildren(newBookmarks(&elsewhere, count, count));
    QMimeData data;
    const QByteArray payload = bookmarkpayload::write(elsewhere.children());
    data.setData(QStringLiteral("application/x-corvia.bookmark"), payload);
    QVector<double> ours;
    QVector<double> nested;
    for (int round = 0; round < 3; ++round) {
        for (int repeat = 0; repeat < 5; ++repeat) {
            ours.append(milliseconds([&] {
                answers += int(store.model().canDropMimeData(&data, Qt::MoveAction, -1, 0, folder));
            }));
        }
        nested.append(milliseconds([&] {
            const QVector<BookmarkRecord> records = bookmarkpayload::read(payload);
            answers += int(std::any_of(records.cbegin(), records.cend(), [&](const BookmarkRecord &record) {
                return target->hasChildNamed(record.name);
            }));
        }));
    }
    std::printf("canDropMimeData, 10,000 records on 10,000          %9.2f %9.2f %8.2f %%   at most 1 %%\n",
                median(ours), median(nested), 100 * median(ours) / median(nested));
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    std::printf("%-50s %9s %9s\n", "questions to the bookmarks, ms", "ours", "plain");
    for (const int bookmarks : {10, 30, 100, 1000})
        ask(bookmarks);
    drop(10'000);
    return answers == 0 ? 1 : 0;
}
