// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/nntptask.h>

#include <QByteArray>
#include <QSharedPointer>

#include <functional>

/// A task that does what a test says, and notes when its end comes on the wrong thread.
class WorkTask final : public NntpTask {
    Q_OBJECT
public:
    using Work = std::function<bool(NntpSession &session, WorkTask &task)>;

    explicit WorkTask(Work work);
    ~WorkTask() override;

    /// Sends @p command and reads the list that follows.
    static QSharedPointer<WorkTask> sending(const QByteArray &command);
    static QSharedPointer<WorkTask> doing(const Work &work);

    /// For the work.
    void tell() { tellProgress(); }

    /// How many tasks were destroyed on another thread than the one that they were made for.
    static int endedElsewhere();

protected:
    bool run(NntpSession &session) override;

private:
    const Work m_work;
};
