// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/requestfailure.h>

#include <QByteArray>
#include <QString>

#include <chrono>
#include <memory>

/// Where a document is posted to.
struct HttpsTarget {
    QString host;
    int port = 0;
    QString authorityFile; ///< PEM of the only authorities to trust; empty: the system's
};

/// Posts one document and reads one, with libcurl, over a connection made for it alone: TLS 1.2 or later, the
/// certificate and its subject alternative names are checked, no redirect is followed, no proxy is asked, no
/// status but 200 is read, and everything that comes is counted. Nothing is ever sent twice.
///
/// post() blocks and is called on one thread at a time; QThread::isInterruptionRequested of that thread ends
/// it. wake() may be called on any thread.
class HttpsClient {
public:
    HttpsClient();
    ~HttpsClient();
    Q_DISABLE_COPY(HttpsClient)

    RequestFailure post(const HttpsTarget &target, const QByteArray &document,
                        std::chrono::steady_clock::time_point deadline, QByteArray &reply);
    /// Makes post() look at once whether it is interrupted.
    void wake();

private:
    struct Private;
    std::unique_ptr<Private> d;
};
