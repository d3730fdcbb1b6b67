// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/connectorexport.h>

#include <QDialog>

class ConnectorPlugin;
class QLabel;

/// Tells what program this is, whose service it is for and what it is built with. GUI thread.
class HALVORA_CONNECTOR_EXPORT HAboutDialog : public QDialog {
    Q_OBJECT
public:
    /// @p plugin outlives the dialog.
    HAboutDialog(ConnectorPlugin *plugin, const QPixmap &pixmap, QWidget *parent);

protected:
    void changeEvent(QEvent *event) override;

private:
    void retranslate();

    const ConnectorPlugin *const m_plugin;
    QLabel *m_title;
    QLabel *m_text;
};
