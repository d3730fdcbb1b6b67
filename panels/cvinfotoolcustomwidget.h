// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// The content of the account panel, as high as the program's panels are.
class CVInfoToolCustomWidget final : public QWidget {
    Q_OBJECT
public:
    explicit CVInfoToolCustomWidget(QWidget *parent = nullptr);

    QSize sizeHint() const override;
};
