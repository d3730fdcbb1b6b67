// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QSharedPointer>
#include <QStringList>
#include <QTimer>
#include <QWidget>

class Connector;
class CVMessageRequest;
class MessageTreeView;
class QDockWidget;
class QModelIndex;

/// What the messages panel holds: the list on the screen, and what the account service has yet to be told. A
/// message that is opened and stays the current one for a while counts as read. The service is told what was
/// read and deleted by one request at a time; what happens meanwhile leaves together afterwards. GUI thread.
class CVMessagesToolWidgetPrivate final : public QWidget {
    Q_OBJECT
public:
    /// @p accountConnector outlives this; @p dock is the panel that it is the content of.
    CVMessagesToolWidgetPrivate(Connector *accountConnector, QDockWidget *dock);

    QSize sizeHint() const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    Connector *const connector;
    MessageTreeView *const view;
    QTimer readTimer; ///< runs while a message that was opened is not taken as read yet
    QStringList pendingRead;
    QStringList pendingDeleted;
    QSharedPointer<CVMessageRequest> request; ///< in flight, or null

    // Each does nothing for an index that is not valid.
public Q_SLOTS:
    void newMessagesArrived();
    /// Opens the message's link; from now on it takes five seconds until the current message counts as read.
    void showMessage(const QModelIndex &index);
    void messageClicked(const QModelIndex &index);
    /// The message that is current now, which may be another one than was opened.
    void markCurrentMessageAsRead();
    /// Without asking.
    void deleteMessage(const QModelIndex &index);
    void sendMessageStatus();

private:
    void messageRequestFinished();
    void setUpView();
    void setUpColumns();

    QDockWidget *const m_dock;
};
