// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "figures.h"

#include <halvora/benchmark.h>
#include <halvora/core.h>
#include <halvora/coreplugininterface.h>
#include <halvora/mainwindow.h>
#include <halvora/pluginloader.h>
#include <halvora/pluginmanager.h>

#include <QApplication>
#include <QMainWindow>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

// Loading happens once in a process, so each round is a process of its own; the figures are medians.
namespace {

constexpr int rounds = 15;

/// One line of microseconds, in the order of stageNames().
void measureOnce(const QString &profile)
{
    Benchmark benchmark;
    {
        QMainWindow empty;
        empty.show();
        QApplication::processEvents();
    }
    benchmark.lap(QStringLiteral("empty QMainWindow, shown"));
    Core core(profile);
    MainWindow window(&core);
    core.setMainWindow(&window);
    benchmark.lap(QStringLiteral("core and main window"));
    CorePluginInterface *plugin = PluginLoader::load(QStringLiteral(PINEGATE_MODULE)).plugin;
    benchmark.lap(QStringLiteral("load and instance"));
    plugin->create(nullptr, &core);
    benchmark.lap(QStringLiteral("create"));
    Benchmark ignored;
    plugin->init(ignored);
    benchmark.lap(QStringLiteral("init"));
    plugin->polish(&window);
    benchmark.lap(QStringLiteral("polish"));
    for (const Benchmark::Stage &stage : benchmark.stages())
        std::printf("%lld;%s\n", stage.nanoseconds / 1000, qPrintable(stage.name));
    std::fflush(stdout);
    std::_Exit(0); // the end is not measured
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    if (argc > 1) {
        measureOnce(QCoreApplication::arguments().at(1));
        return 0;
    }
    QStringList names;
    QVector<QVector<double>> figures;
    for (int round = 0; round <= rounds; ++round) {
        const QTemporaryDir profile;
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {profile.path()});
        process.waitForFinished();
        if (round == 0)
            continue; // warms the disk's cache
        const auto lines =
            QString::fromUtf8(process.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        figures.resize(lines.size());
        names.clear();
        for (int i = 0; i < lines.size(); ++i) {
            names.append(lines.at(i).section(QLatin1Char(';'), 1));
            figures[i].append(lines.at(i).section(QLatin1Char(';'), 0, 0).toDouble());
        }
    }
    const double empty = median(figures.first());
    double plugin = 0;
    std::printf("%-28s %10s %10s\n", "start, by stage", "ms", "x empty");
    for (int i = 0; i < names.size(); ++i) {
        const double value = median(figures.at(i));
        if (i >= 2)
            plugin += value;
        std::printf("%-28s %10.2f %10.2f\n", qPrintable(names.at(i)), value / 1000, value / empty);
    }
    std::printf("%-28s %10.2f %10.2f\n", "plug-in, load to polish", plugin / 1000, plugin / empty);
    return 0;
}
