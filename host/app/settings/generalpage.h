// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class ConnectorPlugin;
class Core;
class LocaleManager;
class QCheckBox;
class QComboBox;
class QLabel;
class QSpinBox;

/// The program's own settings: language, connections and notifications. GUI thread.
class GeneralPage final : public QWidget {
    Q_OBJECT
public:
    /// @p plugin may be null, then there are no connections to set. Both outlive the page.
    GeneralPage(Core *core, ConnectorPlugin *plugin, QWidget *parent);

    /// Lets hold what is chosen.
    void save();
    /// Lets hold what a new user has, and shows it.
    void reset();

protected:
    void changeEvent(QEvent *event) override;

private:
    void build();
    void fillLanguages();
    void retranslate();

    Core *const m_core;
    LocaleManager *const m_locale;
    ConnectorPlugin *const m_plugin;
    QLabel *const m_languageCaption;
    QComboBox *const m_language;
    QLabel *const m_connectionsCaption;
    QSpinBox *const m_connections;
    QLabel *const m_connectionsNote;
    QLabel *const m_searchCaption;
    QLabel *const m_search;
    QCheckBox *const m_notifications;
};
