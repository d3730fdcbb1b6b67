// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// A plug-in of Qt's kind that is not for this program.
class StrangePlugin final : public QObject {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.test.Strange")
};
