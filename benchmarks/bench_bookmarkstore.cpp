// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkstore.h"
#include "figures.h"
#include "rawbookmarks.h"

#include "bookmarks/bookmarkitem.h"
#include "connector/cvconnectorplugin.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <malloc.h>

// What the store does, beside SQLite's own library doing the same work on a copy of the file, in turns; each
// figure is the median of its rounds.
namespace {

struct Sides {
    QVector<double> ours, raw, literal;
};

void print(const char *what, const Sides &sides, const char *reach)
{
    const double ours = median(sides.ours);
    const double raw = median(sides.raw);
    std::printf("%-48s %9.2f %9.2f %8.2f x", what, ours, raw, ours / raw);
    if (sides.literal.isEmpty())
        std::printf("%21s", "");
    else
        std::printf(" %10.1f %7.0f x", median(sides.literal), median(sides.literal) / ours);
    std::printf("   %s\n", reach);
}

/// A store with one folder; the raw side works on a copy of its file.
struct Scene {
    Scene()
        : folder(store.addFolder(QStringLiteral("folder")))
        , item(store.model().itemFromIndex(folder))
    {
        QFile::copy(store.path(), copyPath());
    }
    QString copyPath() const { return store.path() + QStringLiteral(".raw"); }

    BookmarkStore store;
    QModelIndex folder;
    BookmarkItem *item;
};

BookmarkItem *append(BookmarkItem *folder, int number)
{
    auto *bookmark = new BookmarkItem(BookmarkKind::Bookmark, folder);
    bookmark->setName(benchmarkNewsgroup(number));
    bookmark->setChildrenLoaded(true);
    folder->insertChild(folder->children().size(), bookmark);
    return bookmark;
}

void import(int count, int rounds, int literalRounds, const char *what, const char *reach)
{
    Sides sides;
    for (int round = 0; round < rounds; ++round) {
        Scene scene;
        BookmarkItem source(BookmarkKind::Folder, nullptr);
        for (int number = 0; number < count; ++number)
            append(&source, number);
        sides.ours.append(milliseconds([&] { scene.store.model().importFolders({&source}); }));
        RawBookmarks raw(scene.copyPath());
        sides.raw.append(milliseconds([&] { raw.appendAtLeast(scene.item->id(), count, true); }));
        if (round >= literalRounds)
            continue;
        raw.run("DELETE FROM bookmarks WHERE bookmark_newsgroup IS NOT NULL");
        sides.literal.append(milliseconds([&] { raw.appendLiterally(scene.item->id(), count); }));
    }
    print(what, sides, reach);
}

/// An account's bookmarks in @p folders folders; what exceeds SQLite's own time is the figure.
void importFolders(int folders, int each, const char *what)
{
    constexpr int rounds = 5;
    QVector<double> ours;
    QVector<double> raw;
    BookmarkItem root(BookmarkKind::Folder, nullptr);
    for (int number = 0; number < folders; ++number) {
        auto *folder = new BookmarkItem(BookmarkKind::Folder, &root);
        folder->setName(QStringLiteral("folder %1").arg(number));
        root.insertChild(number, folder);
        for (int row = 0; row < each; ++row)
            append(folder, number * each + row);
    }
    for (int round = 0; round < rounds; ++round) {
        Scene scene;
        RawBookmarks file(scene.copyPath());
        raw.append(milliseconds([&] { file.appendAtLeast(scene.item->id(), folders * (each + 1), true); }));
        ours.append(milliseconds([&] { scene.store.model().importFolders(root.children()); }));
    }
    std::printf("%-48s %9.2f %9.2f %8.1f ms more   at most 150\n", what, median(ours), median(raw),
                median(ours) - median(raw));
}

void commits(int count, int rounds)
{
    Sides sides;
    for (int round = 0; round < rounds; ++round) {
        Scene scene;
        sides.ours.append(milliseconds([&] {
            for (int number = 0; number < count; ++number)
                scene.store.model().saveItem(append(scene.item, number));
        }));
        RawBookmarks raw(scene.copyPath());
        sides.raw.append(milliseconds([&] { raw.appendAtLeast(scene.item->id(), count, false); }));
    }
    print("1,000 saveItem, a transaction each", sides, "at most 1.25 x");
}

void load(int count, int rounds)
{
    Sides sides;
    QVector<double> bytes;
    Scene scene;
    const qint64 id = scene.item->id();
    RawBookmarks(scene.store.path()).appendAtLeast(id, count, true);
    RawBookmarks raw(scene.store.path());
    for (int round = 0; round < rounds; ++round) {
        scene.store.model().load();
        BookmarkItem *folder = scene.store.model().topLevelItems().first();
        const std::size_t before = mallinfo2().uordblks;
        sides.ours.append(milliseconds([&] { scene.store.model().loadChildren(folder); }));
        bytes.append(double(mallinfo2().uordblks - before) / count);
        sides.raw.append(milliseconds([&] { raw.read(id); }));
    }
    print("loading a folder of 10,000", sides, "at most 2.0 x");
    std::printf("%-48s %9.0f bytes a bookmark, at most 300\n", "", median(bytes));
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    std::printf("%-48s %9s %9s %10s %10s %9s   %s\n", "bookmark store, ms", "ours", "raw", "ratio", "literal",
                "faster", "reach");
    import(1'000, 15, 3, "1,000 newsgroups, one transaction", "at most 5 x; 80 x faster");
    import(10'000, 5, 1, "10,000 newsgroups, one transaction", "100 x faster");
    importFolders(1, 20'000, "20,000 newsgroups in one folder");
    importFolders(100, 200, "20,000 newsgroups in 100 folders");
    importFolders(20'000, 1, "20,000 newsgroups in a folder each");
    commits(1'000, 15);
    load(10'000, 15);
    return 0;
}
