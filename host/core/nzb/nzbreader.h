// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>
#include <halvora/nzbfailure.h>
#include <halvora/nzbfile.h>

#include <atomic>

/// Reads NZB files, which anybody may have written. Blocks for as long as the disk takes. Any thread.
class HALVORA_CORE_EXPORT NzbReader {
public:
    struct Result {
        NzbFile file; ///< empty after a failure
        NzbFailure failure;
    };

    static constexpr qint64 mostBytes = qint64(256) * 1024 * 1024;

    /// Reads the file at @p path, which must be an ordinary one; anything else is refused without waiting for
    /// it. Ends soon with NzbFailure::Kind::Interrupted after @p stop became true.
    static Result readFile(const QString &path, const std::atomic_bool *stop = nullptr);
    /// Reads a whole document.
    static Result readDocument(const QByteArray &document);
};
