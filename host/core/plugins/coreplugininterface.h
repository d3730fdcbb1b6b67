// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QObject>
#include <QString>

class Benchmark;
class Core;
class MainWindow;
class NewsgroupInfoProvider;
class QAction;
class QWidget;

/// What the application knows of a provider plug-in. The order of the operations is part of the interface.
/// Everything is called on the GUI thread, by the application: create once, then init and polish once each in
/// the same turn of the event loop, which may be a later one: the application waits while another program
/// holds the provider's database. Other operations follow polish, onShutdown only then.
class HALVORA_CORE_EXPORT CorePluginInterface {
public:
    CorePluginInterface() = default;
    virtual ~CorePluginInterface();
    Q_DISABLE_COPY(CorePluginInterface)

    /// Hands over the core, which outlives the plug-in's objects. @p application is the object that drives
    /// the plug-in.
    virtual void create(QObject *application, Core *core) = 0;
    virtual void init(Benchmark &benchmark) = 0;
    /// Adds the plug-in's panels to @p window, which takes them over.
    virtual void polish(MainWindow *window) = 0;
    virtual QString name() const = 0;
    virtual QString title() const = 0;
    virtual QString windowTitle() const = 0;
    virtual bool providesNntpProfiles() const = 0;
    virtual bool handlesFile(const QString &fileName) const = 0;
    /// May be null.
    virtual NewsgroupInfoProvider *newsgroupInfoProvider() const = 0;
    /// Owned by the plug-in.
    virtual QAction *aboutAction() const = 0;
    /// A new widget for the middle of the main window, which takes it over, or null.
    virtual QWidget *homeWidget() = 0;
    virtual void onLanguageChange() = 0;
    virtual void onJobControllerRestore() = 0;
    virtual void onApplicationStart() = 0;
    virtual void onApplicationStartFinished() = 0;
    virtual void onShutdown() = 0;
};

Q_DECLARE_INTERFACE(CorePluginInterface, "com.halvora.CorePluginInterface/1.0")
