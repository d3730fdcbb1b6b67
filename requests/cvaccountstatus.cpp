// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "requests/cvaccountstatus.h"

#include <QDomElement>
#include <QSharedData>

class CVAccountStatusData : public QSharedData {
public:
    bool null = true;
    bool supported = false;
    qint32 nextUpdateMillis = 0;
    QString planName;
    qint32 maxConnections = -1;
    qint64 billingBytes = -1;
    qint64 mtdBytes = -1;
    qint64 usageUpdatedTimestamp = 0;
};

namespace {

qint32 number(const QString &text)
{
    bool ok = false;
    const qint32 value = text.toInt(&ok, 10);
    return ok ? value : -1;
}

qint64 byteCount(const QDomElement &element, const QString &name)
{
    bool ok = false;
    const qint64 value = element.attribute(name, QStringLiteral("0")).toLongLong(&ok, 10);
    return ok ? value : -1;
}

} // namespace

CVAccountStatus::CVAccountStatus()
    : d(new CVAccountStatusData)
{
}

CVAccountStatus::CVAccountStatus(const CVAccountStatus &other) = default;

CVAccountStatus &CVAccountStatus::operator=(const CVAccountStatus &other) = default;

CVAccountStatus::~CVAccountStatus() = default;

// What an absent attribute means differs on purpose: an absent byte count is zero and shown, an absent
// connection limit is unknown, an unreadable timestamp is zero.
void CVAccountStatus::parse(const QDomElement &element)
{
    d = new CVAccountStatusData;
    d->supported =
        element.attribute(QStringLiteral("supported"), QStringLiteral("false")) == QLatin1String("true");
    d->nextUpdateMillis =
        number(element.attribute(QStringLiteral("next-update-millis"), QStringLiteral("0")));

    const QDomElement plan = element.firstChildElement(QStringLiteral("plan"));
    if (!plan.isNull())
        d->planName = plan.attribute(QStringLiteral("name"));

    const QDomElement nntp = element.firstChildElement(QStringLiteral("nntp"));
    if (!nntp.isNull()) {
        d->maxConnections = number(nntp.attribute(QStringLiteral("max-connections")));
        d->billingBytes = byteCount(nntp, QStringLiteral("billing-bytes"));
        d->mtdBytes = byteCount(nntp, QStringLiteral("mtd-bytes"));
        d->usageUpdatedTimestamp =
            nntp.attribute(QStringLiteral("usage-updated-timestamp"), QStringLiteral("0"))
                .toLongLong(nullptr, 10);
    }
    d->null = false;
}

bool CVAccountStatus::isEmpty() const
{
    return d->null || d->maxConnections < 0 || (d->billingBytes < 0 && d->mtdBytes < 0) ||
           d->planName.isEmpty();
}

bool CVAccountStatus::supported() const
{
    return d->supported;
}

int CVAccountStatus::nextUpdateMillis() const
{
    return d->nextUpdateMillis;
}

QString CVAccountStatus::planName() const
{
    return d->planName;
}

int CVAccountStatus::maxConnections() const
{
    return d->maxConnections;
}

qint64 CVAccountStatus::billingBytes() const
{
    return d->billingBytes;
}

qint64 CVAccountStatus::mtdBytes() const
{
    return d->mtdBytes;
}

qint64 CVAccountStatus::usageUpdatedTimestamp() const
{
    return d->usageUpdatedTimestamp;
}
