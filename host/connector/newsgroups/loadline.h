// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QBoxLayout>
#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

/// What stands below a list: how much there is, that more is on its way, or what is wrong and a button to try
/// again. GUI thread.
class LoadLine final : public QWidget {
    Q_OBJECT
public:
    /// The button stands where @p direction leads from a problem.
    LoadLine(QBoxLayout::Direction direction, QWidget *parent);

    void showSummary(const QString &text);
    /// With a bar that moves; @p text may say how much has come.
    void showProgress(const QString &text);
    /// @p problem is plain text, perhaps somebody else's; it stands above @p summary, which may be empty.
    void showProblem(const QString &problem, const QString &summary);

Q_SIGNALS:
    void tryAgainRequested();

protected:
    void changeEvent(QEvent *event) override;

private:
    void show(const QString &problem, const QString &summary, bool isMoving);

    QLabel *m_problem;
    QPushButton *m_tryAgain;
    QLabel *m_summary;
    QProgressBar *m_bar;
};
