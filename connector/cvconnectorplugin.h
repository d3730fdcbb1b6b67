// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorplugin.h>
#include <halvora/hindex.h>

#include <QPointer>
#include <QSharedPointer>

class BookmarkItem;
class CVBookmarkManager;
class CVBookmarksToolWidget;
class CVInfoToolWidget;
class CVLoginRequest;
class CVMessagesToolWidget;
class CVStatusRequest;
class HAboutDialog;
class HRequest;
class Newsgroup;
class QTimer;
class StatsPlugin;

/// The provider as the program's connection machinery sees it: owns the addresses of the account service,
/// starts logins and status requests, applies what they bring and makes the panels. GUI thread.
class CVConnectorPlugin : public ConnectorPlugin {
    Q_OBJECT
public:
    explicit CVConnectorPlugin(Core *core);
    ~CVConnectorPlugin() override;

    void init(Benchmark &benchmark) override;
    void polish(MainWindow *window) override;
    QAction *aboutAction() const override;
    void retranslateUi() override;
    QString statsConfigName() const override;
    QString displayName() const override;
    QString platformDisplayName() const override;
    QString productName() const override;
    QString productTag() const override;
    QString emptyText() const override;
    /// Ignored while a login is in flight.
    void startLogin() override;
    /// Ignored while a status request is in flight or no login is applied.
    void refreshStatus() override;
    HJobResultHandler *jobResultHandler() const override;
    QPixmap loginPixmap() const override;
    bool isPreviewSupported() const override;
    bool isAccountRequired() const override;
    bool isTrialSupported() const override;
    QString detailsUrl(const HStorageId &id) const override;
    QString urlScheme() const override;
    QList<HServerAddress> serverAddresses() const override;
    bool addressFlag() const override;

    /// Opens the newsgroup of @p bookmark; nothing for a folder.
    void showNewsgroup(const BookmarkItem &bookmark);
    /// Opens @p newsgroups together under @p title, if at least one of them is for files.
    void showNewsgroups(const QString &title, const QList<Newsgroup> &newsgroups, HIndex::MediaFacet facet);

Q_SIGNALS:
    void statsRequested();

public Q_SLOTS:
    void showAboutDialog();
    void showControlPanel();

private Q_SLOTS:
    void loginRequestFinished();
    void statusRequestFinished();

private:
    void applyFinishedLogin();
    void forgetAccount();
    StatsPlugin *findStatsPlugin() const;

    HJobResultHandler *m_jobResultHandler;
    QTimer *m_statusTimer;
    CVBookmarkManager *m_bookmarkManager = nullptr;   ///< a child, made by init()
    QPointer<CVBookmarksToolWidget> m_bookmarksPanel; ///< the main window's
    QPointer<CVMessagesToolWidget> m_messagesPanel;   ///< the main window's
    QPointer<CVInfoToolWidget> m_infoPanel;           ///< the main window's
    QAction *m_aboutAction;
    QPointer<HAboutDialog> m_aboutDialog; ///< deletes itself on close
    // The raw pointers say that a request is in flight; the server's queue holds further references.
    CVLoginRequest *m_loginRequest = nullptr;
    QSharedPointer<HRequest> m_loginReference;
    CVStatusRequest *m_statusRequest = nullptr;
    QSharedPointer<HRequest> m_statusReference;
};
