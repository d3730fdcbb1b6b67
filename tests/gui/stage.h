// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "person.h"
#include "runningprogram.h"

class QAbstractItemView;

/// The program on the screen, and a person who uses it. GUI thread but for what is said to answer spots.
class Stage {
public:
    /// Opens the program and waits until its window is in front.
    Stage();
    ~Stage();
    Q_DISABLE_COPY(Stage)

    RunningProgram &program() { return m_program; }
    /// Quits and starts again over the same profile.
    void restart();

    /// Lets a person play @p story, on a thread of its own, while the program runs. What disappointed the
    /// person fails the test; a picture is kept of it. Nothing is played in a test that has failed.
    void play(const std::function<void(Person &)> &story);

    /// The middle of a widget of the window or its dialogs by its object name, once it can be used.
    Spot widget(const QString &objectName);

private:
    void open();
    void recover();

    RunningProgram m_program;
};

/// A row of @p view, which is found by @p index once it is needed; @p part is where in the row, from 0 (its
/// upper edge) to 1.
Spot rowOf(const QString &name, const std::function<QAbstractItemView *()> &view,
           const std::function<QModelIndex()> &index, double part = 0.5);
