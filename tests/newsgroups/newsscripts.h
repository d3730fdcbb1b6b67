// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "hostilenntpserver.h"

#include <condition_variable>
#include <mutex>

struct NntpLimits;

/// Holds a script back until the test has seen what it wanted to see. Made before the server.
class Gate {
public:
    Gate() = default;
    Q_DISABLE_COPY(Gate)

    void open();
    /// Waits for open(); not for ever, so that a test that fails comes to its end.
    void pass();

private:
    std::mutex m_mutex; ///< guards what follows
    std::condition_variable m_changed;
    bool m_isOpen = false;
};

/// What news servers do to panels. The scripts know the commands by their order only.
namespace NewsScripts {

using Script = HostileNntpServer::Script;

/// Lets the client log in, answers each command that follows with the next of @p replies, and goes on with
/// @p ending, if there is one.
Script dialogue(const QList<QByteArray> &replies, const Script &ending = nullptr);
/// The same, and hangs up.
Script brokenDialogue(const QList<QByteArray> &replies);
/// The first connection gets the first of @p scripts, and so on; all that follow get the last.
Script inTurn(const QList<Script> &scripts);

/// Adds the rows of a table with a column "ending": a block of lines, begun with @p start, that has no end.
void addEndlessBlocks(const QByteArray &start);
/// Limits that each of these blocks soon goes beyond.
NntpLimits narrowLimits();

/// The block that answers a request for the overview of articles @p first to @p last.
QByteArray overview(int first, int last);

} // namespace NewsScripts
