// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "accountdesk.h"

#include <utility>

#include "accountreply.h"
#include "detailsreply.h"
#include "embedded.h"

namespace corvia {

AccountDesk::AccountDesk(AccountBook &book, int autoSearchInterval, std::vector<NewsServer> ownServers,
                         std::vector<FileGroup> fileGroups)
    : book_(book)
    , autoSearchInterval_(autoSearchInterval)
    , ownServers_(std::move(ownServers))
    , fileGroups_(std::move(fileGroups))
    , schema_(requestSchema())
{
}

AccountRequest AccountDesk::read(const std::string &body) const
{
    return AccountRequest::read(body, schema_);
}

std::string AccountDesk::answer(const AccountRequest &request, const Fault &fault)
{
    if (fault.kind == Fault::Kind::ForgetSessions) {
        book_.forgetSessions();
    }
    if (!request.problem.empty()) {
        return errorReply("request", request.problem);
    }
    if (fault.kind == Fault::Kind::Element) {
        return literalReply(fault.text);
    }
    if (request.name == "login") {
        const bool refused = fault.kind == Fault::Kind::RefuseLogin;
        return refused ? errorReply("credentials", fault.text) : answerLogin(request);
    }
    return answerInSession(request);
}

std::string AccountDesk::answerLogin(const AccountRequest &request)
{
    const std::string refusal = book_.refusalFor(request.userName, request.password);
    if (!refusal.empty()) {
        return errorReply("credentials", refusal);
    }
    const std::string word = book_.openSession(request.userName);
    return loginReply(*book_.account(request.userName), word, autoSearchInterval_, ownServers_,
                      book_.takeUntoldMessages(word));
}

std::string AccountDesk::answerInSession(const AccountRequest &request)
{
    const std::optional<Account> account = book_.accountOfSession(request.session);
    if (!account) {
        return errorReply("session", "The session is unknown or has ended; please log in again.");
    }
    if (request.name == "details") {
        return answerDetails(request.fileGroup);
    }
    // What the user has just deleted is not told any more.
    if (request.name == "message") {
        book_.applyMessageReport(request.session, request.readUids, request.deletedUids);
    }
    const std::vector<Message> messages = book_.takeUntoldMessages(request.session);
    if (request.name == "message") {
        return successReply(messages);
    }
    return request.name == "bookmarks" ? bookmarksReply(account->bookmarks, messages)
                                       : statusReply(account->status, messages);
}

std::string AccountDesk::answerDetails(const std::string &fileGroup) const
{
    for (const FileGroup &group : fileGroups_) {
        if (group.id == fileGroup) {
            return detailsReply(group);
        }
    }
    return errorReply("details", "The service does not know this group of files.");
}

} // namespace corvia
