// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/hrequest.h>

#include <QDomElement>
#include <QSharedPointer>

#include <functional>

class Journal;

/// A status request that writes into a journal what is done with it. The functions are set before it is
/// handed over; they run on the server's worker.
class RecordingRequest final : public HRequest {
    Q_OBJECT
public:
    using Flags = std::function<bool(bool serverReady, bool connected)>;
    using Step = std::function<bool()>;

    RecordingRequest(Connector *connector, const QString &name, Journal *journal);
    ~RecordingRequest() override;

    /// A request that may go as soon as the server is ready, whether or not a login is applied.
    static QSharedPointer<RecordingRequest> eager(Connector *connector, const QString &name,
                                                  Journal *journal);

    Flags onAllowed;               ///< null: as HRequest
    Step onPrepare;                ///< null: true
    std::function<void()> onBuild; ///< before the element is written
    std::function<void()> onParse; ///< after the reply was kept
    bool isLogin = false;

    int deliveries() const { return m_deliveries; }
    /// The reply's own element.
    QDomElement reply() const { return m_reply; }
    /// Whether the last reference to any request went on a thread that did not make it; cleared by asking.
    static bool wasDestroyedElsewhere();

    bool isAllowedToSend(bool serverReady, bool connected) const override;
    bool isLoginRequest() const override { return isLogin; }
    bool prepare() override;
    void buildRequestInternal(QXmlStreamWriter &writer) override;
    void buildResponseInternal(const QDomElement &reply) override;
    void deliver() override;

private:
    const QString m_name;
    Journal *const m_journal;
    QDomElement m_reply;
    int m_deliveries = 0;
};
