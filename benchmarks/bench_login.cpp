// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "figures.h"
#include "heartbeat.h"
#include "runningprogram.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/hcontext.h>
#include <halvora/hcontextholder.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QDialog>
#include <QLabel>

#include <algorithm>
#include <cstdio>

// From the click to the filled panel, with and without news servers to test the password at.
namespace {

constexpr int rounds = 21;

struct Figures {
    QVector<double> wantLogin; ///< the click, until the window answers again
    QVector<double> apply;     ///< the plug-in's own work when the reply is there
    QVector<double> whole;     ///< to the filled panel
    QVector<double> paint;     ///< until it is painted
};

double milliseconds(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

void measure(RunningProgram &program, bool again, Figures &figures)
{
    QElapsedTimer timer;
    QElapsedTimer applying;
    const QObject guard;
    bool done = false;
    // Connected last, so the host's own work is over when the clock starts.
    QObject::connect(&program.server(), &HServer::stateChanged, &guard, [&](HServer::State state) {
        if (state == HServer::Connected)
            applying.start();
    });
    QObject::connect(HContextHolder::context(), &HContext::changed, &guard, [&] {
        if (applying.isValid())
            figures.apply.append(milliseconds(applying));
        done = true;
    });
    timer.start();
    if (again)
        program.application().connectorPlugin()->startLogin();
    else
        program.logIn(QStringLiteral("demo"), QStringLiteral("pinegate"));
    figures.wantLogin.append(milliseconds(timer));
    while (!done)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    figures.whole.append(milliseconds(timer));
    QApplication::processEvents();
    program.window().repaint();
    figures.paint.append(milliseconds(timer));
}

void print(const char *what, const Figures &figures)
{
    std::printf("%-34s %10s\n", what, "ms");
    std::printf("  %-32s %10.2f\n", "the click itself", median(figures.wantLogin));
    if (!figures.apply.isEmpty())
        std::printf("  %-32s %10.2f\n", "plug-in, GUI thread, on reply", median(figures.apply));
    std::printf("  %-32s %10.2f\n", "click to filled panel", median(figures.whole));
    std::printf("  %-32s %10.2f\n", "click to painted panel", median(figures.paint));
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    RunningProgram program;
    program.open();
    Figures first;
    Figures again;
    const Heartbeat heartbeat;
    for (int round = 0; round < rounds; ++round) {
        measure(program, false, first);
        measure(program, true, again);
        Q_EMIT program.window().logoutRequested();
        QApplication::processEvents();
    }
    print("first login, by stage", first);
    print("login with credential test", again);
    std::printf("%-34s %10.2f\n", "longest gap of the window", heartbeat.longestGap());
    program.close();
    return 0;
}
