// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/abstractprovider.h>

/// A provider whose login never ends, whoever interrupts it. It asks for a login and for the end of the
/// program as soon as that has started.
class StubbornPlugin final : public AbstractProvider {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.test.Stubborn")
    Q_INTERFACES(CorePluginInterface)
public:
    void create(QObject *application, Core *core) override;
    void init(Benchmark &benchmark) override;
    void onApplicationStartFinished() override;
};
