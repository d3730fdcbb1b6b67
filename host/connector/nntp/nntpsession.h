// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>
#include <halvora/nntpaccount.h>
#include <halvora/nntpgroup.h>

#include <QByteArray>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

class Core;
class NntpDialogue;
class NntpReply;

/// How long and how much one task may take from a news server.
struct NntpLimits {
    std::chrono::milliseconds connect = std::chrono::seconds(10); ///< each host, up to its greeting
    std::chrono::milliseconds silence = std::chrono::seconds(30); ///< without a byte, while one is awaited
    std::chrono::milliseconds block = std::chrono::minutes(5);    ///< one reply, from command to last line
    qint64 bytes = qint64(256) * 1024 * 1024;                     ///< all that comes in during one task
};

/// A logged-in connection to one of the account's news servers, as a task sees it (RFC 3977, RFC 4643). It
/// lives on a worker's stack and is used there only. Every operation blocks and ends without success within
/// 100 ms of the worker's interruption or of Core::stopRunning().
///
/// A server that wants a new login in the middle (480) gets it once, and the command is repeated. One that
/// withdraws (400, 502) has refused, and the connection is closed. After a failed command a task may send
/// another one only while isOpen().
class HALVORA_CONNECTOR_EXPORT NntpSession final {
public:
    /// Is given each line of a block: without its line end and its stuffed dot, good during the call only.
    /// False when it has enough.
    using LineSink = std::function<bool(const char *line, int length)>;

    enum class Trouble {
        None,
        Unreachable,        ///< no connection to any host
        Broken,             ///< the connection broke, took too long or spoke something else
        Refused,            ///< the server said no; also a command that can not be sent
        TooManyConnections, ///< the server said no to one more connection; only after open()
        Stopped,            ///< by an interruption or the program's end
    };

    /// @p core is not owned and outlives the session; only its any-thread operations are used.
    explicit NntpSession(Core *core);
    /// Closes at once.
    ~NntpSession();
    Q_DISABLE_COPY(NntpSession)

    /// Begins a task: a connection that is logged in to @p account, the one there is if it still stands. All
    /// counts start afresh.
    bool open(const NntpAccount &account, const NntpLimits &limits = NntpLimits());
    bool isOpen() const;
    /// Says goodbye, does not wait for the answer, and closes.
    void quit();

    /// Sends @p command, which has no line end, waits for a reply with @p code and gives every line of the
    /// block that follows to @p sink. True when the block came to its end or the sink had enough; in the
    /// latter case the connection is closed, and the next command makes a new one.
    bool lines(const QByteArray &command, int code, const LineSink &sink);
    /// Selects the newsgroup @p name; nothing when that fails.
    std::optional<NntpGroup> group(const QByteArray &name);

    /// What was the matter with the last operation.
    Trouble trouble() const { return m_trouble; }
    /// The server's own words of the last refusal since open(); empty when there was none. Plain text of at
    /// most 512 characters, without control characters and without the password.
    QString lastReply() const { return m_refusal; }

private:
    bool connectAnew();
    bool greet(const NntpHost &host);
    bool logIn();
    bool prepare(const QByteArray &command);
    NntpReply ask(const QByteArray &command, int code);
    NntpReply exchange(const QByteArray &command);
    NntpReply exchangeOnce(const QByteArray &command);
    bool readBlock(const LineSink &sink);
    bool receiveMore(std::chrono::steady_clock::time_point end);
    bool isTooMuch() const;
    void close();
    bool fail(Trouble trouble);
    bool lose();
    bool refuse(const NntpReply &reply);
    bool isStopped() const;

    Core *m_core;
    std::unique_ptr<NntpDialogue> m_dialogue;
    NntpAccount m_account;
    NntpLimits m_limits;
    qint64 m_receivedBefore = 0; ///< by the connection, before this task
    bool m_isReused = false;     ///< left by an earlier task, and this one has sent nothing yet
    bool m_hadEnough = false;    ///< it was the sink that ended the connection
    Trouble m_trouble = Trouble::None;
    QString m_refusal;
};
