// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/pluginloader.h>

#include <halvora/coreplugininterface.h>

#include <QDir>
#include <QFileInfo>
#include <QLibrary>
#include <QPluginLoader>

namespace {

PluginResult failed(const QString &file, PluginResult::Failure failure, const QString &userText,
                    const QString &logText)
{
    PluginResult result;
    result.file = file;
    result.failure = failure;
    result.userText = userText.arg(QFileInfo(file).fileName());
    result.logText = QStringLiteral("%1: %2").arg(file, logText);
    return result;
}

} // namespace

PluginResult PluginLoader::load(const QString &file)
{
    if (!QFileInfo(file).isFile())
        return failed(file, PluginResult::Failure::FileMissing, tr("The plug-in %1 is not there."),
                      QStringLiteral("no such file"));

    QPluginLoader loader(file);
    loader.setLoadHints(QLibrary::PreventUnloadHint);
    QObject *instance = loader.instance();
    if (!instance)
        return failed(file, PluginResult::Failure::NotAPlugin, tr("%1 is not a plug-in that can be loaded."),
                      loader.errorString());

    auto *plugin = qobject_cast<CorePluginInterface *>(instance);
    if (!plugin)
        return failed(file, PluginResult::Failure::WrongInterface,
                      tr("The plug-in %1 was made for another version of Halvora."),
                      QStringLiteral("%1 does not offer %2")
                          .arg(QString::fromLatin1(instance->metaObject()->className()),
                               QString::fromLatin1(qobject_interface_iid<CorePluginInterface *>())));

    PluginResult result;
    result.file = file;
    result.plugin = plugin;
    result.instance = instance;
    return result;
}

QVector<PluginResult> PluginLoader::loadAll(const QString &directory)
{
    QVector<PluginResult> results;
    const QDir dir(directory);
    const QStringList names = dir.entryList(QDir::Files, QDir::Name);
    for (const QString &name : names) {
        if (QLibrary::isLibrary(name))
            results.append(load(dir.filePath(name)));
    }
    return results;
}
