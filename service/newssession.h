// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "accountbook.h"
#include "newsreader.h"
#include "records.h"

#include <functional>
#include <map>
#include <string>

namespace corvia {

class Channel;

/// One NNTP client (RFC 3977): reads its commands and answers them. A client logs in with the user name and
/// the password of its account (RFC 4643) before it may read. Used by one thread.
class NewsSession {
public:
    /// All of them have to outlive the session.
    NewsSession(const NewsStore &store, const AccountBook &book, Records &records);

    /// Serves the client until it quits or leaves or the service ends.
    void run(Channel &channel);

    /// Answers one command line without its line end. The reply has all its line ends.
    std::string execute(const std::string &line);

private:
    using Arguments = NewsReader::Arguments;
    struct Command {
        std::size_t fewest = 0; ///< arguments
        std::size_t most = 0;
        bool afterLogin = false;
        std::function<std::string(const Arguments &)> run;
    };

    void addOpenCommands();
    void addListCommands();
    void addReadingCommands();
    std::string quit();
    std::string capabilities() const;
    std::string logIn(const Arguments &arguments);
    std::string checkPassword(const std::string &password);

    const NewsStore &store_;
    const AccountBook &book_;
    Records &records_;
    NewsReader reader_;
    std::map<std::string, Command> commands_;
    std::string user_;
    bool loggedIn_ = false;
    bool ended_ = false;
};

} // namespace corvia
