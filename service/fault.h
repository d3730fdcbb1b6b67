// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace corvia {

/// What goes wrong with the account service's replies. A fault stays in force until another one is set;
/// Kind::None is a service in good health. Every fault begins after the request has been read in full.
struct Fault {
    enum class Kind {
        None,
        Stall,       ///< Never answers; the connection stays open until the client leaves.
        Drip,        ///< A correct reply, head and body, one byte every `number` milliseconds.
        Flood,       ///< A body of `number` bytes (0: endless) that starts well and never ends its document.
        HeaderFlood, ///< A status line and then header lines without end.
        Status,      ///< The correct reply under the HTTP status `number`.
        Body,        ///< Status 200 with `text` as the body.
        Element,     ///< Status 200 with a reply whose content is `text` instead of the correct element.
        Truncate,    ///< The whole body is announced and half of it sent, then the connection closes.
        Close,       ///< The connection closes without an answer.
        Redirect,    ///< Status `number` (302 when 0) with `text` as the Location.
        Encoding,    ///< The correct reply, said to be gzip-coded though it is not.
        RefuseLogin, ///< Every login is refused with `text` as the sentence.
        ForgetSessions, ///< All session words are forgotten before the request is looked at.
        Delay           ///< The correct reply, `number` milliseconds late.
    };

    Kind kind = Kind::None;
    int number = 0;
    std::string text;
    std::string request; ///< Empty: every request; otherwise only those whose element has this name.
};

/// The kind a scenario calls `name` ("drip", "header-flood", ...). False when there is none.
bool faultKindFromName(const std::string &name, Fault::Kind *kind);

} // namespace corvia
