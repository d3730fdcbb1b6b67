// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreplugininterface.h>

#include <QStringList>
#include <QVariant>

/// The smallest plug-in there can be. It writes down the operations that were called, in the property
/// "calls".
class GoodPlugin final : public QObject, public CorePluginInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.test.Good")
    Q_INTERFACES(CorePluginInterface)
public:
    void create(QObject *, Core *) override { note("create"); }
    void init(Benchmark &) override { note("init"); }
    void polish(MainWindow *) override { note("polish"); }
    QString name() const override { return QStringLiteral("good"); }
    QString title() const override { return QStringLiteral("Good"); }
    QString windowTitle() const override { return QStringLiteral("Good"); }
    bool providesNntpProfiles() const override { return false; }
    bool handlesFile(const QString &) const override { return false; }
    NewsgroupInfoProvider *newsgroupInfoProvider() const override { return nullptr; }
    QAction *aboutAction() const override { return nullptr; }
    QWidget *homeWidget() override { return nullptr; }
    void onLanguageChange() override { note("onLanguageChange"); }
    void onJobControllerRestore() override { note("onJobControllerRestore"); }
    void onApplicationStart() override { note("onApplicationStart"); }
    void onApplicationStartFinished() override { note("onApplicationStartFinished"); }
    void onShutdown() override { note("onShutdown"); }

private:
    void note(const char *call)
    {
        setProperty("calls", property("calls").toStringList() << QString::fromLatin1(call));
    }
};
