// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/nntptask.h>

#include <QByteArray>
#include <QSharedPointer>
#include <QThread>

#include <functional>

/// A task that does what a test says, and writes down where its end came.
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

    /// Where the last task was destroyed.
    static QThread *lastEnd();

protected:
    bool run(NntpSession &session) override;

private:
    const Work m_work;
};
