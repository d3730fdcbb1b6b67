// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/requestfailure.h>

#include <QByteArray>
#include <QDomDocument>
#include <QString>

class HRequest;
class QDomElement;

/// The document around a request's and a reply's own element; docs/account-service.md describes it. Any
/// thread.
class Envelope {
public:
    /// The document of @p request; a failure when it would hold what XML cannot carry.
    static RequestFailure write(HRequest &request, const QString &session, QByteArray &document);
    /// Guards and parses @p bytes and gives the reply's own element, which may be kept as long as @p
    /// document. A refusal of the service is a failure.
    static RequestFailure read(const QByteArray &bytes, QDomDocument &document, QDomElement &element);
};
