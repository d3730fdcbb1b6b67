// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class ConnectorPlugin;
class QLabel;
class QPushButton;

/// The middle of the main window: the provider's banner, whether the account is logged in and, if it is not,
/// the way to log in. GUI thread.
class HHomeWidget final : public QWidget {
    Q_OBJECT
public:
    /// @p plugin outlives the widget.
    explicit HHomeWidget(ConnectorPlugin *plugin);

protected:
    void changeEvent(QEvent *event) override;

private:
    void build();
    void refresh();
    QString accountText() const;
    QString detailText() const;

    ConnectorPlugin *const m_plugin;
    QLabel *m_state;
    QLabel *m_detail;
    QPushButton *m_button;
};
