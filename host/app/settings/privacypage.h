// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class PrivateDataOptions;
class PrivateDataRegistry;
class QLabel;
class QPushButton;

/// What is deleted when private data is cleared, and the button that does so. GUI thread.
class PrivacyPage final : public QWidget {
    Q_OBJECT
public:
    /// @p registry outlives the page.
    PrivacyPage(const PrivateDataRegistry &registry, QWidget *parent);

    /// Lets hold what is chosen.
    void save();
    /// Shows what holds.
    void reload();

protected:
    void changeEvent(QEvent *event) override;

private:
    void build();
    void retranslate();
    void showWhatThereIs();
    void askWhatToClear();

    const PrivateDataRegistry &m_registry;
    QLabel *const m_intro;
    PrivateDataOptions *const m_options;
    QPushButton *const m_clear;
};
