// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

class QMainWindow;
class QSettings;

/// Keeps the place and size of a window and the arrangement of its panels from one run to the next.
class WindowLayout final {
public:
    /// Both outlive this.
    WindowLayout(QMainWindow *window, QSettings &settings);
    Q_DISABLE_COPY(WindowLayout)

    /// Does nothing before the first restore(): a window without its panels has no arrangement to keep.
    void save() const;
    /// Applies place and size as they were saved, once; restore() does so otherwise.
    void restorePlace();
    /// Takes the present arrangement of the panels as the one to go back to, then applies what was saved.
    void restore();
    /// Puts the panels back to where they were before the first restore().
    void reset();

private:
    void applyDefaultSize();
    void applyDefaultPanels();
    void bringOnScreen();

    QMainWindow *const m_window;
    QSettings &m_settings;
    QByteArray m_defaults;
    bool m_isPlaced = false;
};
