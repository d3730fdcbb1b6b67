// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStatusBar>

class ElidedLabel;
class QTimer;
class StateDot;
class TrafficMeter;

/// The status bar: whether the program is connected, the last thing that it had to tell, what is wrong for as
/// long as it is, and the download rate.
class StatusLine final : public QStatusBar {
    Q_OBJECT
public:
    /// @p meter outlives the status bar.
    StatusLine(const TrafficMeter &meter, QWidget *parent);

    /// @p state is a MainWindow::OnlineState. An empty @p text stands for the usual word.
    void setOnlineState(int state, const QString &text);
    void showNotice(const QString &sentence);
    /// Shows @p sentence beside the notice until it is replaced; nothing for an empty one.
    void showLastingNotice(const QString &sentence);

protected:
    void changeEvent(QEvent *event) override;

private:
    void showState();

    int m_state = 0; ///< a MainWindow::OnlineState; offline
    QString m_text;
    StateDot *m_dot;
    ElidedLabel *m_stateText;
    ElidedLabel *m_notice;
    ElidedLabel *m_lasting;
    QTimer *m_noticeTimer;
};
