// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>
#include <halvora/hindex.h>
#include <halvora/hserveraddress.h>
#include <halvora/hstorageid.h>
#include <halvora/urlinfo.h>

#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QPixmap>
#include <QPointer>

class Benchmark;
class Connector;
class Core;
class HJobResultHandler;
class HLoginRequest;
class HNewsgroupsPanel;
class HServerAddressRotator;
class MainWindow;
class Newsgroup;
class NewsgroupInfoProvider;
class QAction;
class QWidget;

/// What one provider's plug-in is to the program's connection machinery. The base holds the core and makes
/// the Connector; a provider overrides what differs from the defaults. The order of the virtual operations is
/// part of the interface. GUI thread.
class HALVORA_CONNECTOR_EXPORT ConnectorPlugin : public QObject {
    Q_OBJECT
public:
    /// @p core is not owned and outlives this object. Calls none of the virtual operations.
    explicit ConnectorPlugin(Core *core);
    ~ConnectorPlugin() override;

    Core *core() const;
    Connector *connector() const;
    /// Names this provider's files and settings; the same at every start.
    QString configName() const;
    /// Takes @p rotator over.
    void setAddressRotator(HServerAddressRotator *rotator);
    void setErrorReportVisible(bool visible);

    /// Opens a page of the main window with the newest articles of @p newsgroup; @p facet says which of them
    /// are shown to begin with. A page for it that is there already comes to the front and loads again.
    /// Nothing happens without a main window.
    void showNewsgroupPanel(const Newsgroup &newsgroup, HIndex::MediaView view, HIndex::MediaFacet facet);
    /// The same for several newsgroups together, under @p title.
    void showNewsgroupPanel(const QString &title, const QList<Newsgroup> &newsgroups, HIndex::MediaView view,
                            HIndex::MediaFacet facet);

    /// Deletes the kept list of newsgroups and empties the panel that shows it. Nothing happens without the
    /// panel.
    void forgetNewsgroups();

    virtual void init(Benchmark &benchmark);
    /// Gives @p window what every provider has: the panel in which newsgroups are chosen.
    virtual void polish(MainWindow *window);
    virtual bool providesNntpProfiles() const;
    virtual bool providesBookmarkManager() const;
    virtual bool handlesFile(const QString &fileName) const;
    virtual NewsgroupInfoProvider *newsgroupInfoProvider() const;
    /// Owned by this object.
    virtual QAction *aboutAction() const = 0;
    /// A new widget for the middle of the main window: the provider's banner and how the account stands.
    virtual QWidget *homeWidget();
    virtual void onLanguageChange();
    virtual void onJobControllerRestore();
    virtual void onApplicationStart();
    virtual void onApplicationStartFinished();
    virtual void onShutdown();
    virtual bool isAnonymousLoginSupported() const;
    virtual void onNonAnonymousAction();
    /// Gives every text of this object its wording in the current language. Called once after construction
    /// and after each change of the language.
    virtual void retranslateUi();
    virtual QString statsConfigName() const = 0;
    virtual QString displayName() const = 0;
    virtual QString platformDisplayName() const = 0;
    virtual QString productName() const = 0;
    virtual QString productTag() const = 0;
    /// For providers whose service speaks JSON; does nothing here.
    virtual void sendToJsonEndpoint(const QString &endpoint, const QJsonObject &object);
    virtual QString emptyText() const = 0;
    /// Wants the account logged in; ignored while a login is under way.
    virtual void startLogin() = 0;
    /// Hands a successful login to the connector.
    virtual void applyLogin(HLoginRequest *login);
    virtual void refreshStatus() = 0;
    virtual HJobResultHandler *jobResultHandler() const = 0;
    virtual QPixmap loginPixmap() const = 0;
    virtual bool isPreviewSupported() const = 0;
    virtual bool isAccountRequired() const = 0;
    virtual bool isTrialSupported() const = 0;
    virtual bool isSearchAllowed() const;
    virtual QString detailsUrl(const HStorageId &id) const = 0;
    virtual QString urlScheme() const = 0;
    /// Opens absolute http and https links with a host and without user information; anything else is
    /// refused with a sentence in the status bar. A null one does nothing.
    virtual void openUrl(const UrlInfo &url);
    virtual QList<HServerAddress> serverAddresses() const = 0;
    virtual bool addressFlag() const = 0;
    /// An action for the account's state, or null.
    virtual QAction *statusAction() const;
    virtual QString onlineText() const;
    virtual QString offlineText() const;

private:
    Core *const m_core;
    const QString m_configName;
    Connector *const m_connector;
    QPointer<HNewsgroupsPanel> m_newsgroups; ///< the main window's
};
