// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "figures.h"
#include "rawbookmarks.h"

#include <halvora/benchmark.h>
#include <halvora/core.h>
#include <halvora/coreplugininterface.h>
#include <halvora/mainwindow.h>
#include <halvora/pluginloader.h>
#include <halvora/pluginmanager.h>

#include <QApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>

#include <cstdio>

// How long the event loop is held at a start with many bookmarks: the longest time between two of its turns,
// from the window's first one to the painted tree. Each round is a process of its own.
namespace {

struct Shape {
    int rows;
    int folders;
    bool isOpen; ///< every folder, otherwise the first two
    double limit;
    int rounds;
};

/// Measures the turns of the event loop while it lives.
class Turns : public QObject {
public:
    Turns()
    {
        m_clock.start();
        connect(&m_beat, &QTimer::timeout, this, [this] {
            m_longest = qMax(m_longest, double(m_clock.nsecsElapsed()) / 1e6);
            m_clock.start();
        });
        m_beat.start(0);
    }
    double longest() const { return m_longest; }

private:
    QTimer m_beat;
    QElapsedTimer m_clock;
    double m_longest = 0;
};

class PaintFilter : public QObject {
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        isPainted = isPainted || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }
    bool isPainted = false;
};

QTreeView *bookmarkTree(const MainWindow &window)
{
    for (auto *view : window.findChildren<QTreeView *>()) {
        if (view->model() && qstrcmp(view->model()->metaObject()->className(), "CVBookmarkManager") == 0)
            return view;
    }
    return nullptr;
}

/// Prints the milliseconds up to the shown window, of the longest turn, and up to the painted tree. Without
/// @p lastFolder there is none to wait for.
void measureOnce(const QString &profile, int lastFolder)
{
    Core core(profile);
    MainWindow window(&core);
    core.setMainWindow(&window);
    CorePluginInterface *plugin = PluginLoader::load(QStringLiteral(PINEGATE_MODULE)).plugin;
    QElapsedTimer clock;
    clock.start();
    plugin->create(nullptr, &core);
    Benchmark ignored;
    plugin->init(ignored);
    plugin->polish(&window);
    window.show();
    const double shown = double(clock.nsecsElapsed()) / 1e6;
    QTreeView *view = bookmarkTree(window);
    const Turns turns;
    while (lastFolder >= 0 && !view->isExpanded(view->model()->index(lastFolder, 0)))
        QApplication::processEvents();
    PaintFilter filter;
    view->viewport()->installEventFilter(&filter);
    view->viewport()->update();
    while (!filter.isPainted)
        QApplication::processEvents();
    const double painted = double(clock.nsecsElapsed()) / 1e6;
    // What was put off comes after the first picture.
    constexpr int further = 200;
    QElapsedTimer rest;
    rest.start();
    while (rest.elapsed() < further)
        QApplication::processEvents();
    std::printf("%f;%f;%f\n", shown, turns.longest(), painted);
    std::fflush(stdout);
    std::_Exit(0); // the end is not measured
}

QStringList start(const QString &profile, int lastFolder)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {profile, QString::number(lastFolder)});
    process.waitForFinished(-1);
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed().split(QLatin1Char(';'));
}

/// Bookmarks in @p shape's folders, in the file that a first start made.
void fill(const QString &profile, const Shape &shape)
{
    const QDir folder(profile);
    const QStringList files = folder.entryList({QStringLiteral("*.sqlite")}, QDir::Files);
    for (const QString &file : files) {
        RawBookmarks raw(folder.filePath(file));
        if (!raw.hasTable())
            continue;
        raw.run(qPrintable(
            QStringLiteral(
                "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT %1) INSERT INTO "
                "bookmarks SELECT i, NULL, 'folder ' || i, NULL, NULL, %2, i - 1 FROM n")
                .arg(shape.folders)
                .arg(int(shape.isOpen))));
        raw.run(qPrintable(
            QStringLiteral(
                "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n LIMIT %1) INSERT INTO "
                "bookmarks (parent_id, bookmark_newsgroup, bookmark_expanded, bookmark_order) SELECT "
                "1 + i % %2, 'alt.binaries.sounds.lossless.' || i, 0, i / %2 FROM n")
                .arg(shape.rows)
                .arg(shape.folders)));
    }
}

void measure(const Shape &shape)
{
    const QTemporaryDir profile;
    start(profile.path(), -1);
    fill(profile.path(), shape);
    const int lastFolder = shape.isOpen ? shape.folders - 1 : qMin(shape.folders, 2) - 1;
    QVector<QVector<double>> figures(3);
    for (int round = 0; round < shape.rounds; ++round) {
        const QStringList values = start(profile.path(), lastFolder);
        for (int i = 0; i < figures.size(); ++i)
            figures[i].append(values.value(i).toDouble());
    }
    std::printf("%9d in %3d %-7s %12.1f %12.1f %12.1f", shape.rows, shape.folders, shape.isOpen ? "open" : "",
                median(figures.at(0)), median(figures.at(1)), median(figures.at(2)));
    if (shape.limit > 0)
        std::printf("   at most %.0f", shape.limit);
    std::printf("\n");
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3) {
        measureOnce(arguments.at(1), arguments.at(2).toInt());
        return 0;
    }
    std::printf("%-24s %12s %12s %12s\n", "start with bookmarks, ms", "window shown", "longest turn",
                "tree painted");
    for (const Shape &shape :
         {Shape{1'000, 1, true, 0, 5}, Shape{3'000, 1, true, 0, 5}, Shape{10'000, 1, true, 50, 5},
          Shape{30'000, 1, true, 0, 3}, Shape{10'000, 100, false, 50, 5}, Shape{10'000, 100, true, 0, 5},
          Shape{100'000, 1, true, 500, 3}})
        measure(shape);
    if (arguments.contains(QStringLiteral("--million")))
        measure({1'000'000, 100, false, 10'000, 1});
    return 0;
}
