// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class PrivateDataOptions;
class PrivateDataRegistry;
class QLabel;
class QPushButton;

/// Asks once more what is to be deleted, and deletes it. What is chosen here is not remembered. GUI thread.
class ClearDataDialog final : public QDialog {
    Q_OBJECT
public:
    /// @p registry outlives the dialog.
    ClearDataDialog(const PrivateDataRegistry &registry, QWidget *parent);

    void accept() override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void build();
    void retranslate();

    QLabel *const m_question;
    PrivateDataOptions *const m_options;
    QLabel *const m_warning;
    QPushButton *const m_clear;
};
