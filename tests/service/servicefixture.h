// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "corviaservice.h"
#include "httpsclient.h"

#include <string>
#include <vector>

/// A running service with a small scenario: `ada` has a plan and bookmarks, `bob` has servers and a newer
/// client of his own but no status, `eve` is suspended and `kim`'s sessions end at once. `ada` has
/// three messages, the first of which can not be deleted. All passwords are
/// "secret word".
class ServiceFixture {
public:
    explicit ServiceFixture(const corvia::Options &options = corvia::Options(),
                            const std::string &extra = "");

    corvia::CorviaService &service() { return service_; }
    /// Empty when the service runs.
    std::string problem() const { return problem_; }

    HttpsClient client() const;
    /// Sends `request` with a client of its own.
    HttpsReply post(const std::string &request) const;
    /// The session word of a fresh login, empty when it is refused.
    std::string logIn(const std::string &user) const;

    void setFault(corvia::Fault::Kind kind, int number = 0, const std::string &text = "",
                  const std::string &request = "");

    static std::string scenario(const std::string &extra = "");
    static std::string loginRequest(const std::string &user, const std::string &password = "secret word");
    static std::string statusRequest(const std::string &session);
    static std::string bookmarksRequest(const std::string &session);
    static std::string messageRequest(const std::string &session, const std::vector<std::string> &read,
                                      const std::vector<std::string> &deleted);
    /// The value of the first attribute `name` in a reply.
    static std::string valueIn(const std::string &reply, const std::string &name);

private:
    corvia::CorviaService service_;
    std::string problem_;
    bool plain_;
};
