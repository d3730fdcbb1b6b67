// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSet>
#include <QString>

class DesktopNotifier;
class HMessageManager;
class MainWindow;
class QSettings;

/// Tells of new messages on the desktop while the user looks at something else, and brings them to the front
/// when the user wants to see them. GUI thread.
class MessageNotifier final : public QObject {
    Q_OBJECT
public:
    /// All of them outlive the notifier.
    MessageNotifier(const QSettings &settings, const HMessageManager *messages, MainWindow *window,
                    QObject *parent);

    /// Whether the user wants to be told; a new one does.
    static bool isWanted(const QSettings &settings);
    static void setWanted(QSettings &settings, bool wanted);
    /// Goes back to what a new user has.
    static void reset(QSettings &settings);

private:
    void tell();
    void showMessages();
    QStringList takeNewTexts();
    void rememberAll();

    const QSettings &m_settings;
    const HMessageManager *const m_messages;
    MainWindow *const m_window;
    DesktopNotifier *m_desktop = nullptr;
    QSet<QString> m_known; ///< uids
};
