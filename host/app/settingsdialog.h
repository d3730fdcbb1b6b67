// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class ConnectorPlugin;
class LocaleManager;
class QComboBox;
class QLabel;
class QSpinBox;

/// The program's settings: language and connections. What is chosen holds after OK. GUI thread.
class SettingsDialog final : public QDialog {
    Q_OBJECT
public:
    /// @p plugin may be null, then there are no connections to set.
    SettingsDialog(LocaleManager *locale, ConnectorPlugin *plugin, QWidget *parent);

    void accept() override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void build();
    void fillLanguages();
    void retranslate();

    LocaleManager *const m_locale;
    ConnectorPlugin *const m_plugin;
    QLabel *m_languageCaption;
    QComboBox *m_language;
    QLabel *m_connectionsCaption;
    QSpinBox *m_connections;
    QLabel *m_connectionsNote;
    QLabel *m_searchCaption;
    QLabel *m_search;
};
