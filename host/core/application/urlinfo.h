// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QMetaType>
#include <QUrl>

/// A link that the program may be asked to open; null when there is none.
class HALVORA_CORE_EXPORT UrlInfo {
public:
    UrlInfo() = default;
    explicit UrlInfo(const QUrl &url)
        : m_url(url)
    {
    }

    bool isNull() const { return m_url.isEmpty(); }
    const QUrl &url() const { return m_url; }

private:
    QUrl m_url;
};

Q_DECLARE_METATYPE(UrlInfo)
