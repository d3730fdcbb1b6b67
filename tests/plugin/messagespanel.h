// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "serviceaccount.h"

#include <halvora/mainwindow.h>

#include <QModelIndex>
#include <QVector>

class CVMessagesToolWidget;
class CVMessagesToolWidgetPrivate;
class HMessage;
class HMessageManager;
class MessageTreeView;
class QTimer;

/// A message of the account; @p number 0 is the newest, and its uid is "m0". Its link leads to /0.
HMessage numberedMessage(int number, bool deletable = true, bool linked = true);

/// The messages panel in a main window that is shown, of an account with a loopback service. Links are not
/// opened but noted. One at a time.
class MessagesPanel {
public:
    /// The account has no messages of its own unless @p scenario gives it some.
    explicit MessagesPanel(const std::string &scenario = silentScenario());
    ~MessagesPanel();
    Q_DISABLE_COPY(MessagesPanel)

    ServiceAccount &account() { return m_account; }
    MainWindow &window() { return *m_window; }
    CVMessagesToolWidget *dock() const { return m_dock; }
    CVMessagesToolWidgetPrivate *content() const;
    MessageTreeView *view() const;
    QTimer &readTimer() const;
    HMessageManager &messages();

    /// As if the service had told @p count numbered messages.
    void fill(int count);
    void receive(const HMessage &message);
    /// Of the messages that are there, from the top.
    QStringList uids();
    /// The message "m<number>"; null when it is gone.
    HMessage message(int number);
    QModelIndex cell(int row, int column = 0);
    /// With the left button, in the middle of a cell.
    void click(int row, int column = 0);
    /// The read timer's time is over, if it runs.
    void endReadTime();
    /// The paths of the links that were opened so far.
    QStringList opened() const { return m_opened; }

    /// What the service was told so far, one text a request: "read m1 m2 deleted m3".
    QStringList reports();
    bool isReporting() const;

    /// Closes the window, and with it the panel.
    void close();
    /// Ends the program and starts it again with the same settings.
    void restart();

private:
    void open();
    static std::string silentScenario();

    ServiceAccount m_account;
    std::unique_ptr<MainWindow> m_window;
    CVMessagesToolWidget *m_dock = nullptr; ///< the window's; null once it is closed
    QStringList m_opened;
};
