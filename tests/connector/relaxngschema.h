// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

#include <libxml/relaxng.h>

/// A RELAX NG schema from a file.
class RelaxNgSchema {
public:
    explicit RelaxNgSchema(const char *file);

    bool isValid() const { return m_schema != nullptr; }
    /// The first complaint about @p document; empty when it is valid.
    QString firstProblem(const QByteArray &document) const;

private:
    std::unique_ptr<xmlRelaxNG, decltype(&xmlRelaxNGFree)> m_schema;
};
