// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "connector/cvconnectorplugin.h"

#include "bookmarks/bookmarkitem.h"
#include "plugin/constants.h"

#include <halvora/core.h>
#include <halvora/haboutdialog.h>
#include <halvora/hpixmaps.h>
#include <halvora/mainwindow.h>
#include <halvora/newsgroup.h>

#include <QAction>
#include <QCoreApplication>
#include <QFile>

#include <algorithm>

namespace {

// The program names its views and facets; these are the ones it starts with.
constexpr auto plainView = HIndex::MediaView(0);
constexpr auto plainFacet = HIndex::MediaFacet(0);

} // namespace

QAction *CVConnectorPlugin::aboutAction() const
{
    return m_aboutAction;
}

void CVConnectorPlugin::retranslateUi()
{
    ConnectorPlugin::retranslateUi();
    m_aboutAction->setText(tr("About"));
}

QString CVConnectorPlugin::statsConfigName() const
{
    return configName();
}

QString CVConnectorPlugin::displayName() const
{
    return QCoreApplication::applicationName();
}

QString CVConnectorPlugin::platformDisplayName() const
{
    return QCoreApplication::applicationName() + QStringLiteral(" x64");
}

QString CVConnectorPlugin::productName() const
{
    return constants::productId;
}

QString CVConnectorPlugin::productTag() const
{
    return constants::productTag;
}

QString CVConnectorPlugin::emptyText() const
{
    return QLatin1String("");
}

HJobResultHandler *CVConnectorPlugin::jobResultHandler() const
{
    return m_jobResultHandler;
}

QPixmap CVConnectorPlugin::loginPixmap() const
{
    const QString drawing = QStringLiteral(":/corvia/images/login.svg");
    if (QFile::exists(drawing))
        return hSvgPixmap(drawing, QSize(450, 100));
    return hRetinaPixmap3(QStringLiteral(":/corvia/images/login%1.png"), 100, true);
}

bool CVConnectorPlugin::isPreviewSupported() const
{
    return false;
}

bool CVConnectorPlugin::isAccountRequired() const
{
    return true;
}

bool CVConnectorPlugin::isTrialSupported() const
{
    return false;
}

QString CVConnectorPlugin::detailsUrl(const HStorageId &id) const
{
    // One after the other: what stands for the scheme may name the second place.
    const QString link = QStringLiteral("%1://details?filegroup=%2").arg(urlScheme());
    return link.arg(id.toString());
}

QString CVConnectorPlugin::urlScheme() const
{
    return constants::linkScheme;
}

bool CVConnectorPlugin::addressFlag() const
{
    return true;
}

void CVConnectorPlugin::showAboutDialog()
{
    if (m_aboutDialog) {
        m_aboutDialog->show();
        return;
    }
    m_aboutDialog = new HAboutDialog(this, hRetinaPixmap3(QStringLiteral(":/app/icon/%1x%1.png"), 128, true),
                                     core()->mainWindow());
    m_aboutDialog->setAttribute(Qt::WA_DeleteOnClose);
    m_aboutDialog->show();
}

void CVConnectorPlugin::showControlPanel()
{
    const UrlInfo url = core()->url(constants::linkControlPanel);
    if (!url.isNull())
        openUrl(url);
}

void CVConnectorPlugin::showNewsgroup(const BookmarkItem &bookmark)
{
    if (!bookmark.isFolder())
        showNewsgroupPanel(Newsgroup(bookmark.name()), plainView, plainFacet);
}

void CVConnectorPlugin::showNewsgroups(const QString &title, const QList<Newsgroup> &newsgroups,
                                       HIndex::MediaFacet facet)
{
    const auto isBinary = [](const Newsgroup &newsgroup) { return newsgroup.isBinary(); };
    if (std::any_of(newsgroups.cbegin(), newsgroups.cend(), isBinary))
        showNewsgroupPanel(title, newsgroups, plainView, facet);
}
