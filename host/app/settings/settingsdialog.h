// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class ConnectorPlugin;
class Core;
class GeneralPage;
class PrivacyPage;
class QPushButton;
class QTabWidget;

/// The settings of the program and of its parts, a page for each subject. What is chosen holds after OK; a
/// reset and the clearing of private data, each asked for once more, hold at once. GUI thread.
class SettingsDialog final : public QDialog {
    Q_OBJECT
public:
    /// @p plugin may be null, then there are no connections to set. Both outlive the dialog.
    SettingsDialog(Core *core, ConnectorPlugin *plugin, QWidget *parent);

    void accept() override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void build();
    void retranslate();
    void askWhetherToReset();
    void resetSettings();

    Core *const m_core;
    QTabWidget *const m_pages;
    GeneralPage *const m_general;
    PrivacyPage *const m_privacy;
    QPushButton *const m_reset;
};
