// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QList>

class QWidget;

/// A part of the program that keeps data which tells about its user, and can delete it. Registered with
/// PrivateDataRegistry. The order of the virtual operations is part of the interface. GUI thread.
class HALVORA_CORE_EXPORT IPrivateData {
public:
    IPrivateData();
    virtual ~IPrivateData();
    Q_DISABLE_COPY(IPrivateData)

    /// New widgets without a parent that show what this part would delete; the caller owns them.
    virtual QList<QWidget *> createOptionWidgets() = 0;
    /// Remembers what was chosen in @p widgets, which createOptionWidgets() made.
    virtual void saveOptions(const QList<QWidget *> &widgets) = 0;
    /// Deletes what the remembered options name.
    virtual void clearPrivateData() = 0;
    /// Deletes what is chosen in @p widgets, which createOptionWidgets() made; remembers nothing.
    virtual void clearPrivateData(const QList<QWidget *> &widgets) = 0;
};
