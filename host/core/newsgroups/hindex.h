// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

/// How articles are shown and which of them. The values are part of the interface: plug-ins pass them as
/// numbers.
class HALVORA_CORE_EXPORT HIndex {
public:
    HIndex() = delete;

    enum MediaView {
        ListView = 0, ///< one line an article
    };
    enum MediaFacet {
        AnyFacet = 0,  ///< every article
        FileFacet = 1, ///< articles that carry files come first
        TextFacet = 2, ///< articles to be read come first
    };
    enum MediaCategory {
        AnyCategory = 0,
        FileCategory = 1, ///< what is posted to be downloaded
        TextCategory = 2, ///< what is posted to be read
    };

    /// The facet under which articles of @p category are found; AnyFacet for an unknown one.
    static MediaFacet mediaCategoryToFacet(const MediaCategory &category);
};
