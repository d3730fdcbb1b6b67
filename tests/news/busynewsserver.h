// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "loopbackport.h"

#include <halvora/nntpaccount.h>

#include <QByteArray>
#include <QByteArrayList>

#include <condition_variable>
#include <functional>
#include <list>
#include <mutex>
#include <thread>

/// A news server on 127.0.0.1 for many clients at once, a thread for each, that counts them. It lets
/// everybody in. The command "HOLD" is answered when release() is called, and "LIST ..." with an empty list.
class BusyNewsServer {
public:
    /// The reply to a command without its line end, with all its line ends; empty for what the server answers
    /// by itself.
    using Answer = std::function<QByteArray(const QByteArray &command)>;

    explicit BusyNewsServer(Answer answer = {});
    ~BusyNewsServer();
    Q_DISABLE_COPY(BusyNewsServer)

    quint16 port() const { return m_listener.port(); }
    /// An account that reads here.
    NntpAccount account() const;

    /// Clients beyond @p connections are turned away with @p words; -1: nobody.
    void setLimit(int connections, const QByteArray &words = "502 Too many connections for this account");
    /// Lets every HOLD end, also those that come later.
    void release();
    /// Closes every connection there is, without a word.
    void hangUp();

    int standing();   ///< connections there are
    int most();       ///< connections there were at once
    int logins();     ///< so far
    int turnedAway(); ///< so far
    int holding();    ///< HOLDs that wait now
    /// All commands so far but the logins.
    QByteArrayList commands();

private:
    struct Guest {
        int descriptor;
        bool isWelcome;
        std::thread thread;
    };

    void run();
    void welcome(int descriptor);
    void converse(Guest &guest);
    void serve(const Guest &guest);
    QByteArray reply(const QByteArray &command);
    QByteArray hold();

    LoopbackPort m_listener;
    const Answer m_answer;
    std::mutex m_mutex; ///< guards what follows, the threads excepted
    std::condition_variable m_changed;
    std::list<Guest> m_guests;
    QByteArrayList m_commands;
    QByteArray m_refusal;
    int m_limit = -1;
    int m_standing = 0;
    int m_most = 0;
    int m_logins = 0;
    int m_turnedAway = 0;
    int m_holding = 0;
    bool m_isReleased = false;
    bool m_isStopping = false;
    std::thread m_thread;
};
