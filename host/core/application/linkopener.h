// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QObject>
#include <QUrl>

#include <functional>

/// Opens links: absolute http and https ones that name a host and no user with the desktop's browser, those
/// of the provider's own scheme inside the program. Any other is refused, because a link may come from the
/// account service. GUI thread.
class HALVORA_CORE_EXPORT LinkOpener : public QObject {
    Q_OBJECT
public:
    using Opener = std::function<bool(const QUrl &)>;

    LinkOpener();

    /// What opens a link that may be opened; QDesktopServices::openUrl unless set.
    void setOpener(const Opener &opener);
    /// Links of @p scheme go to @p handler, which says by itself what it can not open and returns whether it
    /// could; it replaces the one before. The schemes of the web cannot be taken, nor an empty one.
    void setOwnScheme(const QString &scheme, const Opener &handler);
    /// Whether the browser may have @p url.
    static bool isAllowed(const QUrl &url);
    /// False when the link was refused or could not be opened.
    bool open(const QUrl &url);

Q_SIGNALS:
    /// One sentence for the status bar.
    void refused(const QString &sentence);

private:
    Opener m_opener;
    QString m_ownScheme; ///< in small letters
    Opener m_ownHandler;
};
