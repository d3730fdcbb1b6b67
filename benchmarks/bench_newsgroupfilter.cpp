// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "figures.h"
#include "grouplines.h"
#include "heartbeat.h"
#include "newsgroupcache.h"
#include "newswindow.h"

#include <QApplication>
#include <QLineEdit>

#include <algorithm>
#include <cstdio>

// How long the newsgroups panel keeps a person waiting, with as many newsgroups as a large server has.
namespace {

constexpr int groups = 110'000;
constexpr int rounds = 9;

/// The slowest of the keystrokes that type @p text, until the list is painted.
double slowestKeystroke(NewsWindow &news, const QString &text, QVector<double> *all)
{
    auto *field = news.find<QLineEdit>("newsgroupFilter");
    double slowest = 0;
    for (int length = 1; length <= text.size(); ++length) {
        const double time = milliseconds([&] {
            field->setText(text.left(length));
            news.window().repaint();
            QApplication::processEvents();
        });
        slowest = std::max(slowest, time);
        all->append(time);
    }
    return slowest;
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    NewsWindow news;
    const NewsgroupTable table = largeTable(groups);
    newsgroupcache::write(news.cacheFile(), {table, QDateTime::currentDateTimeUtc(), QString(), QString()});
    const double read = milliseconds([&] { newsgroupcache::read(news.cacheFile()); });
    news.restart();
    const Heartbeat heartbeat;
    const double shown = milliseconds([&] {
        while (news.list()->model()->rowCount() < groups)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        news.window().repaint();
        QApplication::processEvents();
    });
    const double gap = heartbeat.longestGap();
    QVector<double> slowest;
    QVector<double> all;
    for (int round = 0; round < rounds; ++round) {
        slowest.append(slowestKeystroke(news, QStringLiteral("linux iso"), &all));
        news.find<QLineEdit>("newsgroupFilter")->clear();
        QApplication::processEvents();
    }
    std::printf("%-50s %9s\n", "110,000 newsgroups in the panel, ms", "");
    std::printf("%-50s %9.2f\n", "reading the kept list, on its own thread", read);
    std::printf("%-50s %9.2f\n", "panel shown to list painted", shown);
    std::printf("%-50s %9.2f\n", "longest pause of the window meanwhile", gap);
    std::printf("%-50s %9.2f\n", "\"linux iso\", a keystroke", median(all));
    std::printf("%-50s %9.2f   at most 50\n", "\"linux iso\", the slowest keystroke", median(slowest));
    return 0;
}
