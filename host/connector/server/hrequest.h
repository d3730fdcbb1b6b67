// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>
#include <halvora/requestfailure.h>

#include <QObject>

class Connector;
class QDomElement;
class QXmlStreamWriter;

/// One exchange with the account service.
///
/// Made on the GUI thread with no parent, put at once into a QSharedPointer, connected and handed to HServer.
/// From then on nobody touches it until requestFinished() arrives, once, on the GUI thread: isAllowedToSend,
/// prepare, buildRequestInternal and buildResponseInternal run on the server's worker, where they make no
/// child objects, timers, signals or translated texts. The order of the virtual operations is part of the
/// interface.
class HALVORA_CONNECTOR_EXPORT HRequest : public QObject {
    Q_OBJECT
public:
    explicit HRequest(Connector *connector);
    ~HRequest() override;

    /// @p serverReady: the server runs and has an address and an account; @p connected: its state is
    /// connected. Both must hold. Worker; pure.
    virtual bool isAllowedToSend(bool serverReady, bool connected) const;
    virtual bool isLoginRequest() const;
    /// Whether a reply came and was accepted. GUI thread, after requestFinished().
    virtual bool isSuccessful() const;
    /// Runs before the exchange, may block; false ends the request unsuccessfully. Worker.
    virtual bool prepare();
    /// Writes the request's own element. Worker.
    virtual void buildRequestInternal(QXmlStreamWriter &writer);
    /// Reads the reply's own element. Called at most once. Handles to it may be kept in the request's
    /// members, and elsewhere on the GUI thread until the slots of requestFinished() have run: the worker
    /// frees the document once the request is destroyed. Worker.
    virtual void buildResponseInternal(const QDomElement &reply);
    /// Reports the request, exactly once. GUI thread.
    virtual void deliver();

    /// Null when the request was successful. GUI thread, after requestFinished().
    RequestFailure failure() const;

Q_SIGNALS:
    void requestFinished();

protected:
    Connector *connector() const;

private:
    friend class HServer;
    friend class RequestQueue;

    Connector *const m_connector;
    RequestFailure m_failure{RequestFailure::Kind::Unreachable};
    bool m_handedOver = false;
    bool m_finished = false;
};
