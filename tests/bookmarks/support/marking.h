// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QTranslator>

/// A language in which every text says where it is from, as in "Context~Text".
class Marking final : public QTranslator {
public:
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        return QString::fromUtf8(context) + QLatin1Char('~') + QString::fromUtf8(text);
    }
    bool isEmpty() const override { return false; }
};
