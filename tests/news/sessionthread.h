// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/nntpsession.h>

#include <QThread>

#include <functional>
#include <utility>

class Core;

/// A worker that opens a session and does one thing with it.
class SessionThread final : public QThread {
public:
    using Work = std::function<void(NntpSession &)>;

    SessionThread(Core *core, NntpAccount account, Work work)
        : m_core(core)
        , m_account(std::move(account))
        , m_work(std::move(work))
    {
    }
    ~SessionThread() override
    {
        requestInterruption();
        wait();
    }

    /// Valid once the thread has finished.
    NntpSession::Trouble trouble() const { return m_trouble; }

protected:
    void run() override
    {
        NntpSession session(m_core);
        if (session.open(m_account))
            m_work(session);
        m_trouble = session.trouble();
    }

private:
    Core *const m_core;
    const NntpAccount m_account;
    const Work m_work;
    NntpSession::Trouble m_trouble = NntpSession::Trouble::None;
};
