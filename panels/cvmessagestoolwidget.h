// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/fancydockwidget.h>

class Connector;
class CVMessagesToolWidgetPrivate;
class MainWindow;
class QModelIndex;

/// The panel "Messages": what the account service wrote to the user. A message that is opened and stays the
/// current one for a while counts as read. The service is told what was read and deleted by one request at a
/// time; what happens meanwhile leaves together afterwards. GUI thread.
class CVMessagesToolWidget final : public FancyDockWidget {
    Q_OBJECT
public:
    /// @p connector outlives the panel.
    CVMessagesToolWidget(Connector *connector, MainWindow *parent);
    ~CVMessagesToolWidget() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

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

protected:
    void changeEvent(QEvent *event) override;

private:
    void messageRequestFinished();

    CVMessagesToolWidgetPrivate *const d; ///< also the content, and as such a child
};
