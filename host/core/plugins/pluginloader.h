// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QCoreApplication>
#include <QString>
#include <QVector>

class CorePluginInterface;
class QObject;

/// What became of one file that was to be loaded: a plug-in, or the reason why there is none.
struct PluginResult {
    enum class Failure { None, FileMissing, NotAPlugin, WrongInterface };

    QString file;
    Failure failure = Failure::None;
    CorePluginInterface *plugin = nullptr; ///< null exactly when there is a failure
    QObject *instance = nullptr;           ///< the plug-in's root object; owned by the plug-in's library
    QString userText;                      ///< one sentence for the person in front of the program
    QString logText;                       ///< what a developer wants to know of the failure
};

/// Loads plug-ins with QPluginLoader. A library stays in memory until the process ends, because objects that
/// it made may outlive any moment at which it could be unloaded. GUI thread.
class HALVORA_CORE_EXPORT PluginLoader {
    Q_DECLARE_TR_FUNCTIONS(PluginLoader)
public:
    /// Never throws and never shows anything. The metadata's interface id is not looked at: it names the
    /// provider, the cast alone decides.
    static PluginResult load(const QString &file);
    /// Every library of @p directory in the order of the file names.
    static QVector<PluginResult> loadAll(const QString &directory);
};
