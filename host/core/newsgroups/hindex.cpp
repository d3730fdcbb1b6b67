// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hindex.h>

HIndex::MediaFacet HIndex::mediaCategoryToFacet(const MediaCategory &category)
{
    switch (category) {
    case AnyCategory:
        return AnyFacet;
    case FileCategory:
        return FileFacet;
    case TextCategory:
        return TextFacet;
    }
    return AnyFacet;
}
