// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>
#include <halvora/coreplugininterface.h>

#include <QObject>
#include <QPointer>
#include <QString>

class ConnectorPlugin;

/// Base of a provider plug-in's root object: forwards what the application asks to the provider's
/// ConnectorPlugin, which it owns from createInternal() on. It has no meta-object of its own: the root
/// object's class is the only one that the loader looks at. GUI thread.
class HALVORA_CONNECTOR_EXPORT AbstractProvider : public QObject, public CorePluginInterface {
public:
    AbstractProvider();
    ~AbstractProvider() override;

    /// Null before create() and after releaseConnectorPlugin().
    ConnectorPlugin *connectorPlugin() const;
    /// Destroys the connector plug-in while core and main window still live; called at shutdown.
    void releaseConnectorPlugin();
    QString language() const;
    /// Gives the plug-in's texts their wording; called once after polish().
    void retranslateUi();

    void polish(MainWindow *window) override;
    QString name() const override;
    QString title() const override;
    QString windowTitle() const override;
    bool providesNntpProfiles() const override;
    bool handlesFile(const QString &fileName) const override;
    NewsgroupInfoProvider *newsgroupInfoProvider() const override;
    QAction *aboutAction() const override;
    QWidget *homeWidget() override;
    void onLanguageChange() override;
    void onJobControllerRestore() override;
    void onApplicationStart() override;
    void onApplicationStartFinished() override;
    void onShutdown() override;

protected:
    /// Takes @p plugin over.
    void createInternal(Core *core, ConnectorPlugin *plugin);
    /// Remembers the language in which the provider's texts are.
    void setLanguage(const QString &language);

private:
    Core *m_core = nullptr;
    QPointer<ConnectorPlugin> m_plugin;
    QString m_language;
};
