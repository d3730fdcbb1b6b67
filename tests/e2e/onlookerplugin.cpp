// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "onlookerplugin.h"

#include "testconnectorplugin.h"

#include <halvora/connectorplugin.h>
#include <halvora/core.h>
#include <halvora/mainwindow.h>
#include <halvora/storagemanager.h>

#include <QDockWidget>
#include <QEvent>
#include <QFile>

void OnlookerPlugin::create(QObject *, Core *core)
{
    createInternal(core, new TestConnectorPlugin(core));
}

bool OnlookerPlugin::handlesFile(const QString &fileName) const
{
    writeDown(fileName);
    return fileName.endsWith(QLatin1String(".mine"));
}

void OnlookerPlugin::onApplicationStartFinished()
{
    MainWindow *window = connectorPlugin()->core()->mainWindow();
    window->showMinimized();
    window->installEventFilter(this);
    window->findChild<QDockWidget *>(QStringLiteral("DetailsDock"))->installEventFilter(this);
    writeDown(QStringLiteral("ready"));
}

bool OnlookerPlugin::eventFilter(QObject *watched, QEvent *event)
{
    const auto *window = qobject_cast<const MainWindow *>(watched);
    if (!window && event->type() == QEvent::Show)
        writeDown(QStringLiteral("details"));
    if (window && event->type() == QEvent::WindowStateChange && !window->isMinimized())
        writeDown(QStringLiteral("restored"));
    return AbstractProvider::eventFilter(watched, event);
}

void OnlookerPlugin::writeDown(const QString &line) const
{
    QFile file(connectorPlugin()->core()->storage()->dataDirectory() + QStringLiteral("/onlooker.log"));
    if (file.open(QIODevice::WriteOnly | QIODevice::Append))
        file.write(line.toUtf8() + '\n');
}
