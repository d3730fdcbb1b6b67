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

/// What the messages panel holds: the list on the screen, and what the account service has yet to be told.
class CVMessagesToolWidgetPrivate final : public QWidget {
    Q_OBJECT
public:
    CVMessagesToolWidgetPrivate(Connector *accountConnector, QWidget *parent);

    QSize sizeHint() const override;

    Connector *const connector;
    MessageTreeView *const view;
    QTimer readTimer; ///< runs while a message that was opened is not taken as read yet
    QStringList pendingRead;
    QStringList pendingDeleted;
    QSharedPointer<CVMessageRequest> request; ///< in flight, or null

private:
    void setUpView();
    void setUpColumns();
};
