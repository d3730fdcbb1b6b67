// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDeadlineTimer>

#include <chrono>

class Core;

/// One absolute deadline for a stretch of waiting, spent in short slices: nothing can wake a worker that
/// waits for a socket, so it looks between two slices whether somebody wants it to stop. Bytes that arrive
/// never extend it.
class WaitBudget {
public:
    /// @p core is not owned and outlives the budget.
    WaitBudget(const Core &core, std::chrono::milliseconds time);

    /// True when the time is spent, the calling thread is asked to interrupt, or the program is shutting
    /// down.
    bool isOver() const;
    /// True when what ended the wait, or would end it, is not the time.
    bool isStopped() const;
    /// How long the next single wait may last, at most 50 ms.
    std::chrono::milliseconds slice() const;
    /// One of @p parts equal parts of what is left, for several attempts that must all get a turn.
    WaitBudget share(int parts) const;

private:
    const Core *m_core;
    QDeadlineTimer m_deadline;
};
