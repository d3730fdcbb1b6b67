// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QSharedDataPointer>
#include <QString>

class CVAccountStatusData;
class QDomElement;

/// The state of the user's account as the account service told it. An implicitly shared value; any thread.
class CVAccountStatus {
public:
    CVAccountStatus();
    CVAccountStatus(const CVAccountStatus &other);
    CVAccountStatus &operator=(const CVAccountStatus &other);
    ~CVAccountStatus();

    /// Starts from the default record and takes what @p element, which may be null, says. Nothing in it is an
    /// error: what is missing or malformed has a value of its own.
    void parse(const QDomElement &element);

    /// Whether there is too little to show: never parsed, no connection limit, no byte count or no plan.
    bool isEmpty() const;
    /// Whether the service keeps account status for this user.
    bool supported() const;
    /// Milliseconds after which the status should be asked for again; 0 or less: never.
    int nextUpdateMillis() const;
    QString planName() const;
    /// -1: unknown.
    int maxConnections() const;
    /// Bytes of the billing cycle; negative: unknown.
    qint64 billingBytes() const;
    /// Bytes of the calendar month; negative: unknown.
    qint64 mtdBytes() const;
    /// When the service counted the bytes, in milliseconds since the epoch, UTC.
    qint64 usageUpdatedTimestamp() const;

private:
    QSharedDataPointer<CVAccountStatusData> d;
};

Q_DECLARE_METATYPE(CVAccountStatus)
