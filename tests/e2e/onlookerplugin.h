// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/abstractprovider.h>

/// A provider that writes down in the profile, one word or path a line, what happens to the program's window
/// and which files it is asked about. It handles those whose name ends in ".mine", and minimises the window
/// at the start.
class OnlookerPlugin final : public AbstractProvider {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.test.Onlooker")
    Q_INTERFACES(CorePluginInterface)
public:
    void create(QObject *application, Core *core) override;
    void init(Benchmark &) override {}
    bool handlesFile(const QString &fileName) const override;
    void onApplicationStartFinished() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void writeDown(const QString &line) const;
};
