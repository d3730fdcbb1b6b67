// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkstore.h"
#include "figures.h"
#include "loopbackaccount.h"
#include "rawbookmarks.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/bookmarktreeview.h"
#include "bookmarks/cvbookmarkstoolwidget.h"
#include "connector/cvconnectorplugin.h"

#include <halvora/benchmark.h>
#include <halvora/mainwindow.h>

#include <QApplication>
#include <QScrollBar>
#include <QStringListModel>
#include <QThread>

#include <cstdio>
#include <utility>

// How the panel paints many bookmarks, beside a plain tree with the same rows, in turns, and how long the
// import of an account's bookmarks keeps the window waiting. Each figure is the median of its rounds.
namespace {

constexpr int rounds = 9;
constexpr QSize panelSize(300, 700);

/// Knows whether a tree has been painted as it is, with all that was opened.
class Picture : public QObject {
public:
    explicit Picture(QTreeView *view)
    {
        view->viewport()->installEventFilter(this);
        connect(view, &QTreeView::expanded, this, [this] { isPainted = false; });
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        isPainted = isPainted || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }

    bool isPainted = false;
};

struct Times {
    QVector<double> first, scroll, repaint;
};

void fill(OpenBookmarkManager &model, int folders, int each)
{
    BookmarkItem root(BookmarkKind::Folder, nullptr);
    QList<BookmarkItem *> list;
    for (int number = 0; number < folders; ++number) {
        auto *folder = new BookmarkItem(BookmarkKind::Folder, &root);
        folder->setName(QStringLiteral("folder %1").arg(number));
        root.insertChild(number, folder);
        for (int row = 0; row < each; ++row) {
            auto *bookmark = new BookmarkItem(BookmarkKind::Bookmark, folder);
            bookmark->setName(benchmarkNewsgroup(number * each + row));
            folder->insertChild(row, bookmark);
        }
        list.append(folder);
    }
    model.importFolders(list);
}

/// What a tree of @p model shows from its top to its bottom.
QStringList rows(const QAbstractItemModel &model, const QModelIndex &parent = QModelIndex())
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        texts << index.data().toString() << rows(model, index);
    }
    return texts;
}

void scroll(QTreeView *view, Times &times)
{
    QScrollBar *bar = view->verticalScrollBar();
    bar->setValue(bar->minimum());
    QApplication::processEvents();
    times.scroll.append(milliseconds([view, bar] {
        while (bar->value() < bar->maximum()) {
            bar->setValue(bar->value() + bar->pageStep());
            view->viewport()->repaint();
        }
    }));
    for (int time = 0; time < 20; ++time)
        times.repaint.append(milliseconds([view] { view->viewport()->repaint(); }));
}

/// Waits until all of @p folders are open.
void paintPanel(CVBookmarkManager &model, CVConnectorPlugin *plugin, int folders, Times &times,
                QStringList &texts)
{
    std::unique_ptr<CVBookmarksToolWidget> dock;
    BookmarkTreeView *view = nullptr;
    times.first.append(milliseconds([&] {
        dock = std::make_unique<CVBookmarksToolWidget>(&model, plugin, nullptr);
        view = dock->findChild<BookmarkTreeView *>();
        const Picture picture(view);
        QMetaObject::invokeMethod(dock->widget(), "modelReset");
        dock->resize(panelSize);
        dock->show();
        while (!picture.isPainted || !view->isExpanded(model.index(folders - 1, 0)))
            QApplication::processEvents();
    }));
    scroll(view, times);
    if (texts.isEmpty())
        texts = rows(model);
}

void paintPlain(const QStringList &texts, Times &times)
{
    QStringListModel model(texts);
    std::unique_ptr<QTreeView> view;
    times.first.append(milliseconds([&] {
        view = std::make_unique<QTreeView>();
        view->setHeaderHidden(true);
        view->setModel(&model);
        const Picture picture(view.get());
        view->resize(panelSize);
        view->show();
        while (!picture.isPainted)
            QApplication::processEvents();
    }));
    scroll(view.get(), times);
}

void print(const char *what, const QVector<double> &ours, const QVector<double> &plain, const char *reach)
{
    std::printf("%-48s %9.2f %9.2f %8.2f x   %s\n", what, median(ours), median(plain),
                median(ours) / median(plain), reach);
}

void paint(const char *color, const char *what)
{
    constexpr int folders = 100;
    BookmarkStore store;
    fill(store.model(), folders, 100);
    for (BookmarkItem *folder : store.model().topLevelItems()) {
        folder->setExpanded(true);
        for (BookmarkItem *bookmark : folder->children())
            bookmark->setColor(QLatin1String(color));
    }
    Times ours;
    Times plain;
    QStringList texts;
    for (int round = 0; round < rounds; ++round) {
        paintPanel(store.model(), store.plugin(), folders, ours, texts);
        paintPlain(texts, plain);
    }
    std::printf("%s, %lld rows\n", what, static_cast<long long>(texts.size()));
    print("  from nothing to the first picture", ours.first, plain.first, "");
    print("  through all rows by pages", ours.scroll, plain.scroll, "at most 1.2 x");
    print("  the last page again", ours.repaint, plain.repaint, "");
}

/// From reading the file to the first picture with all folders open.
double restart(int folders, int each)
{
    BookmarkStore store;
    fill(store.model(), folders, each);
    store.execute(QStringLiteral("UPDATE bookmarks SET bookmark_expanded = bookmark_newsgroup IS NULL"));
    return milliseconds([&] {
        CVBookmarksToolWidget dock(&store.model(), store.plugin(), nullptr);
        auto *view = dock.findChild<BookmarkTreeView *>();
        const Picture picture(view);
        store.model().load();
        dock.show();
        while (!picture.isPainted || !view->isExpanded(store.model().index(folders - 1, 0)))
            QApplication::processEvents();
    });
}

std::string accountsBookmarks(int folders, int each)
{
    std::string text = "<bookmarks>";
    for (int number = 0; number < folders; ++number) {
        text += "<folder><name>folder " + std::to_string(number) + "</name>";
        for (int row = 0; row < each; ++row)
            text += "<newsgroup>" + benchmarkNewsgroup(number * each + row).toStdString() + "</newsgroup>";
        text += "</folder>";
    }
    return text + "</bookmarks>";
}

/// How long the event loop worked from the reply of the account service to the painted tree.
double import(const std::string &bookmarks)
{
    LoopbackAccount account;
    corvia::Fault fault;
    fault.kind = corvia::Fault::Kind::Element;
    fault.text = bookmarks;
    fault.request = "bookmarks";
    account.service().setFault(fault);
    CVConnectorPlugin plugin(&account.core());
    account.useDemo(plugin);
    MainWindow window(&account.core());
    account.core().setMainWindow(&window);
    Benchmark benchmark;
    plugin.init(benchmark);
    plugin.polish(&window);
    window.show();
    auto *view = window.findChild<BookmarkTreeView *>();
    QApplication::processEvents();
    Picture picture(view);
    bool imported = false;
    QObject::connect(view->model(), &QAbstractItemModel::modelAboutToBeReset, view, [&] { imported = true; });
    plugin.startLogin();
    double held = 0;
    while (!picture.isPainted || !view->isExpanded(view->model()->index(1, 0))) {
        if (!imported)
            QThread::usleep(200);
        const double turn = milliseconds([] { QApplication::processEvents(); });
        held += imported ? turn : 0;
    }
    return held;
}

void printImport(int folders, int each, const char *reach)
{
    const std::string bookmarks = accountsBookmarks(folders, each);
    QVector<double> held;
    for (int round = 0; round < rounds; ++round)
        held.append(import(bookmarks));
    std::printf("import of %6d newsgroups in %6d folders %15.2f %30s\n", folders * each, folders,
                median(held), reach);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    std::printf("%-48s %9s %9s %10s   %s\n", "bookmarks panel, ms", "ours", "plain", "ratio", "reach");
    paint("", "10,000 bookmarks without colour");
    paint("orange", "10,000 bookmarks, all coloured");
    std::printf("from the file to the first picture, all open\n");
    for (const int each : {10, 100})
        std::printf("  %6d bookmarks %41.2f\n", 100 * each, restart(100, each));
    printImport(50, 40, "at most 60 ms");
    for (const auto &[folders, each] : {std::pair(2, 10'000), std::pair(100, 200), std::pair(20'000, 1)})
        printImport(folders, each, "at most 150 ms beyond SQLite's own time");
    return 0;
}
