// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>
#include <halvora/nzbreader.h>

#include <QObject>
#include <QVector>

class NzbReadThread;

/// Reads NZB files beside the GUI thread and tells of the last one that was asked for. GUI thread.
class HALVORA_CORE_EXPORT NzbLoader : public QObject {
    Q_OBJECT
public:
    explicit NzbLoader(QObject *parent = nullptr);
    /// Waits for what is being read, for at most two seconds in all.
    ~NzbLoader() override;
    Q_DISABLE_COPY(NzbLoader)

    /// Begins to read the file at @p path; of one that was asked for before nothing is heard any more.
    void load(const QString &path);
    /// Nothing is heard of what was asked for.
    void cancel();

Q_SIGNALS:
    void loaded(const NzbFile &file);
    void failed(const NzbFailure &failure);

private:
    void take(NzbReadThread *thread);

    QVector<NzbReadThread *> m_threads; ///< all that run
    NzbReadThread *m_wanted = nullptr;
};
