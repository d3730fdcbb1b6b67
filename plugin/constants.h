// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>

/// The fixed words of the plug-in, each with one definition and one spelling. They are built when the library
/// is loaded, so no other object of static storage may read them while it is being made.
// NOLINTBEGIN(cert-err58-cpp): load-time constants; what they allocate can not fail in a way worth catching.
// clazy:excludeall=non-pod-global-static
namespace constants {

// The product
inline const QString productName = QStringLiteral("Pinegate");
inline const QString productFileDescription = QStringLiteral("Pinegate File");
inline const QString linkScheme = QStringLiteral("pinegate");
inline const QString productId = QStringLiteral("pinegate");
inline const QString productTag = QStringLiteral("PG");
inline const QString hostProductVersion = QStringLiteral("0.1.0");

// The account service; an empty host means that there is no such address
inline const QString primaryServiceHost = QStringLiteral("accounts.corvia.example");
inline const QString secondaryServiceHost = QLatin1String("");
inline const QString tertiaryServiceHost = QLatin1String("");

// Bookmarks
inline const QString bookmarkManagerName = QStringLiteral("CVBookmarkManager");
inline const QString bookmarksPrivateDataName = QStringLiteral("PDCVBookmarks");
inline const QString bookmarkMimeType = QStringLiteral("application/x-corvia.bookmark");
inline const QString bookmarkColumns =
    QStringLiteral("bookmark_id, parent_id, bookmark_name, bookmark_newsgroup, bookmark_color, "
                   "bookmark_expanded, bookmark_order");

// Keys of the host's links
inline const QString linkControlPanel = QStringLiteral("control.panel");
inline const QString linkHelp = QStringLiteral("help");
inline const QString linkHelpQuery = QStringLiteral("help.query");
inline const QString linkVlcInstaller = QStringLiteral("vlc.installer");
inline const QString linkHome = QStringLiteral("home");
inline const QString linkSignup = QStringLiteral("signup");
inline const QString linkSupport = QStringLiteral("support");
inline const QString linkLostPassword = QStringLiteral("lost.password");
inline const QString linkCustomerCenter = QStringLiteral("customer.center");
inline const QString linkFirstLaunch = QStringLiteral("first.launch");

// Keys of jobs and file groups
inline const QString jobNzbGuid = QStringLiteral("NzbGuid");
inline const QString jobNzbLink = QStringLiteral("NzbLink");
inline const QString jobNzbPoster = QStringLiteral("NzbPoster");
inline const QString jobNzbNewsgroups = QStringLiteral("NzbNewsgroups");
inline const QString jobNzbMinDateTime = QStringLiteral("NzbMinDateTime");
inline const QString jobNzbMaxDateTime = QStringLiteral("NzbMaxDateTime");
inline const QString jobHash16k = QStringLiteral("Hash16k");
inline const QString jobArticleId = QStringLiteral("ArticleId");
inline const QString jobId = QStringLiteral("id");
inline const QString jobFiles = QStringLiteral("files");
inline const QString jobSize = QStringLiteral("size");
inline const QString jobAuto = QStringLiteral("auto");
inline const QString jobTabKey = QStringLiteral("tab_key");

// Settings and private data
inline const QString settingDeleteFolderOnExit = QStringLiteral("DeleteFolderOnExit");
inline const QString settingDeleteInvalidated = QStringLiteral("DeleteInvalidated");
inline const QString settingShowDisclaimer = QStringLiteral("ShowDisclaimer");
inline const QString settingAutoSearch = QStringLiteral("AutoSearch");
inline const QString settingPrivateAutoSearches = QStringLiteral("PDAutoSearches");
inline const QString settingConnector = QStringLiteral("ConnectorSettings");
inline const QString settingLimitEnabled = QStringLiteral("LimitEnabled");
inline const QString settingLimitInterval = QStringLiteral("LimitInterval");
inline const QString settingLimitMaxBytes = QStringLiteral("LimitMaxBytes");
inline const QString settingLimitCurrentBytes = QStringLiteral("LimitCurrentBytes");
inline const QString settingLastLimitUpdate = QStringLiteral("LastLimitUpdate");

// Private properties of file groups and files
inline const QString propertyUid = QStringLiteral("__hv_r_uid");
inline const QString propertyFileGroup = QStringLiteral("__hv_fg");
inline const QString propertyFileGroupId = QStringLiteral("__hv_fg_id");
inline const QString propertyFileGroupIndexId = QStringLiteral("__hv_fg_idx_id");
inline const QString propertyFileGroupFiles = QStringLiteral("__hv_fg_files");
inline const QString propertyFileGroupPreview = QStringLiteral("__hv_fg_preview");
inline const QString propertyFileGroupAutomaticPreview = QStringLiteral("__hv_fg_automatic_preview");
inline const QString propertyFileId = QStringLiteral("__hv_f_id");

// Fields of the index
inline const QString fieldTitle = QStringLiteral("title");
inline const QString fieldPoster = QStringLiteral("poster");
inline const QString fieldTimestamp = QStringLiteral("timestamp");
inline const QString fieldNewsgroup = QStringLiteral("newsgroup");
inline const QString fieldMediaCategory = QStringLiteral("mediaCategory");
inline const QString fieldLanguage = QStringLiteral("language");
inline const QString fieldRating = QStringLiteral("rating");
inline const QString fieldComments = QStringLiteral("comments");
inline const QString fieldPreview = QStringLiteral("preview");
inline const QString fieldNfo = QStringLiteral("nfo");
inline const QString fieldPixels = QStringLiteral("pixels");
inline const QString fieldSize = QStringLiteral("size");

// Panels
inline const QString panelDownload = QStringLiteral("Download");
inline const QString panelInfo = QStringLiteral("Info");

// Media extensions, alternatives of a regular expression
inline const QString videoExtensions =
    QStringLiteral("avi|mkv|divx|xvid|mpg|mpeg|wmv|mov|ogm|ogv|ogg|flv|mp4");
inline const QString audioExtensions = QStringLiteral("wma|mp3|wav|oga");
inline const QString imageExtensions = QStringLiteral("jpg|jpeg|png|gif|bmp|tif|tiff");

// File names, as regular expressions
inline const QString rarFirstPartPattern = QStringLiteral(R"re((\.part[0]+1\.rar)|(\.rar)$)re");
inline const QString nfoFilePattern = QStringLiteral(R"re(\.nfo(["' ]|$))re");
inline const QString quotedFilePattern = QStringLiteral(R"re("([^"]+\.(?:[0-9a-z]{2,4}))")re");
inline const QString imageFilePattern =
    QStringLiteral(R"re(\.()re") + imageExtensions + QStringLiteral(R"re()(["' ]|$))re");
inline const QString sampleFilePattern =
    QStringLiteral(R"re((.*)(^|\W)sample(.*)\.()re") + videoExtensions + QStringLiteral(R"re()$)re");

// Colours
inline const QColor colorAlert = QColor(0x99, 0x00, 0x00);
inline const QColor colorPinkBackground = QColor(0xFB, 0xEF, 0xF9);
inline const QColor colorNoticeBackground = QColor(0xFF, 0xFA, 0xE3);
inline const QColor colorNoticeHighlight = QColor(0xF9, 0xED, 0xBE);
inline const QColor colorNoticeBorder = QColor(0xF0, 0xC3, 0x6D);

} // namespace constants
// NOLINTEND(cert-err58-cpp)
