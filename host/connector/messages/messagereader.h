// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

class HMessage;
class QDomDocument;

/// Takes the messages that a reply brings along out of its document. Any thread.
class MessageReader {
public:
    /// In the order of the document, as values that hold nothing of it; the last 10,000 where there are more.
    /// Left out are messages without a uid or with one that could not be reported back. Where a date or a
    /// link cannot be read there is none.
    static QVector<HMessage> read(const QDomDocument &reply);
};
