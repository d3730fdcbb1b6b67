// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>
#include <halvora/hmessage.h>
#include <halvora/hrequest.h>
#include <halvora/hserveraddress.h>

#include <QObject>
#include <QSharedPointer>
#include <QTimer>
#include <QVector>

#include <memory>

class Core;
class HServerAddressRotator;
class RequestQueue;
class ServerWorker;
enum class WhichRequests;
struct ServerJob;
struct ServerSituation;

/// The way to the account service: a queue of requests and one worker thread that sends them, one after the
/// other. Every request that is handed over is delivered exactly once, whatever the service does and also at
/// shutdown. All operations belong to the GUI thread.
///
/// A request other than a login belongs to the account of setAccount(). It waits for a login of that account
/// and ends without success at the logout or when another account takes over, and so does every request that
/// the slots of such a request add. Without an account a request belongs to the first one that logs in. After
/// a successful login the worker takes no request until logIn() or the end of the login's slots.
class HALVORA_CONNECTOR_EXPORT HServer : public QObject {
    Q_OBJECT
public:
    enum State {
        Disconnected = 0, ///< nobody is logged in
        Connecting = 1,   ///< a login is under way and none was applied before
        Connected = 2,    ///< a login is applied; requests can be sent
        ServiceLost = 3,  ///< the service could not be reached; a login has to come first
    };
    Q_ENUM(State)

    explicit HServer(Core *core, QObject *parent = nullptr);
    /// The worker must have ended, see shutDown().
    ~HServer() override;

    State connectorState() const;
    /// To the back of the queue. A request is handed over once; again it is ignored.
    void addRequestToQueue(const QSharedPointer<HRequest> &request);
    /// To the front of the queue.
    void prependRequestToQueue(const QSharedPointer<HRequest> &request);

    /// Takes the addresses over; the one that was set before goes.
    void setAddressRotator(std::unique_ptr<HServerAddressRotator> rotator);
    /// The address that the next request will go to; a null one when there is none.
    HServerAddress currentAddress() const;
    /// Whether there is a user name and a password to log in with.
    void setAccountKnown(bool known);
    /// Milliseconds for one request, from the moment the worker takes it; applies to requests taken later.
    void setRequestDeadline(int milliseconds);

    /// The account whose data the window shows: its user name at the service, compared exactly; empty: none.
    /// A change ends the requests of the account before and its session; logIn() follows.
    void setAccount(const QString &account);
    /// A login was applied: @p session goes with every request from now on.
    void logIn(const QString &session);
    /// Forgets the session and the account. Every request that waits, is under way or was not delivered yet
    /// ends without success.
    void logOut();
    /// Ends a login that is under way without success. Other requests go on waiting for their account.
    void cancelLogin();

    /// Delivers everything that waits as unsuccessful, interrupts what runs and waits for the worker, at most
    /// two seconds. False when the worker still runs: nothing that it knows may be destroyed then.
    bool shutDown();

Q_SIGNALS:
    /// Only when it really changed.
    void stateChanged(HServer::State state);
    /// A request was delivered without success; @p failure says why.
    void requestFailed(const RequestFailure &failure, bool isLogin);
    /// A reply brought messages along for the account that is logged in. Comes after the slots of the
    /// request, so that a login has been applied.
    void messagesReceived(const QVector<HMessage> &messages);
    /// The service asks for a new login.
    void sessionRefused();

private Q_SLOTS:
    void lookAtWorker();

private:
    bool accept(const QSharedPointer<HRequest> &request);
    void setState(State state);
    void lookAtWorkerLater();
    void updateSituation();
    void startWorker();
    void watchDeadline();
    void deliverFinished(WhichRequests which);
    void deliverEnded(WhichRequests which);
    void deliver(const ServerJob &job);
    void tellMessages(const ServerJob &job, const QString &sessionBefore);
    void follow(const RequestFailure &failure, bool isLogin, bool sessionEnded);

    Core *const m_core;
    std::unique_ptr<RequestQueue> m_queue;
    std::unique_ptr<HServerAddressRotator> m_rotator;
    std::unique_ptr<ServerSituation> m_situation;
    std::unique_ptr<ServerWorker> m_worker;
    QTimer m_deadlineTimer;
    quint64 m_watched = 0;   ///< the turn whose deadline the timer waits for
    quint64 m_loginTurn = 0; ///< the turn of a login that is being applied; the worker waits until it is
    State m_state = Disconnected;
    QString m_account;
    bool m_accountKnown = false;
    bool m_closed = false;
    bool m_isEnding = false; ///< while a request is delivered that its account's logout ended
};
