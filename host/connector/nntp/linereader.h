// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>
#include <string_view>

/// Cuts a stream of bytes into lines that end with a line feed, with or without a carriage return before it
/// (RFC 3977 section 3.1 wants both; some servers forget). Holds no more than it was given.
class LineReader {
public:
    /// @p limit is the longest line in bytes, its line end included.
    explicit LineReader(int limit);

    void append(const QByteArray &bytes);
    /// Where the next bytes may be written, at most @p size of them; keep() says how many there were. Nothing
    /// else is called in between.
    char *makeRoom(int size);
    void keep(int size);
    /// The next whole line without its line end; nothing while none is complete or when it is too long. Good
    /// until more bytes come.
    std::optional<std::string_view> nextLine();
    /// The same as a copy of its own.
    std::optional<QByteArray> takeLine();
    /// Whether the line being read has grown past the limit; only clear() helps then.
    bool isTooLong() const;
    bool isEmpty() const { return m_taken == m_bytes.size(); }
    void clear();

private:
    int lengthOfNext() const;

    int m_limit;
    int m_kept = 0;  ///< what makeRoom() found
    int m_taken = 0; ///< so many bytes at the front have become lines
    QByteArray m_bytes;
};
