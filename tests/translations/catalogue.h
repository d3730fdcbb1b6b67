// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// One text of a catalogue.
struct Message {
    QString context;
    QString source;
    QString comment;
    QStringList translations; ///< several when it counts something
    bool counts = false;
    bool isFinished = true;

    /// What the text is known by.
    QString key() const { return context + QStringLiteral(": ") + source + QLatin1Char('|') + comment; }
};

/// What is in a .ts file.
namespace Catalogue {

/// The messages of @p file; none when it can not be read.
QVector<Message> read(const QString &file);

} // namespace Catalogue
