// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Names a group of files in the provider's storage. A value.
class HStorageId {
public:
    HStorageId() = default;
    explicit HStorageId(const QString &text)
        : m_text(text)
    {
    }

    QString toString() const { return m_text; }

private:
    QString m_text;
};
