// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hnntpdistributor.h>

#include <QSettings>

namespace {

// Before the first login nobody knows the account's limit; this many are allowed everywhere.
constexpr int cautiousLimit = 4;
constexpr int defaultWish = 20;

QString wishKey()
{
    return QStringLiteral("Connections/Wanted");
}

} // namespace

HNntpDistributor::HNntpDistributor(QSettings &settings, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_limit(cautiousLimit)
{
}

int HNntpDistributor::maxConnectionsMax() const
{
    return m_limit;
}

void HNntpDistributor::setMaxConnectionsMax(int connections)
{
    if (connections == m_limit)
        return;
    m_limit = connections;
    Q_EMIT changed();
}

int HNntpDistributor::wantedConnections() const
{
    return qMax(1, m_settings.value(wishKey(), defaultWish).toInt());
}

void HNntpDistributor::setWantedConnections(int connections)
{
    if (connections == wantedConnections())
        return;
    m_settings.setValue(wishKey(), qMax(1, connections));
    Q_EMIT changed();
}

void HNntpDistributor::resetWantedConnections()
{
    const int before = wantedConnections();
    m_settings.remove(wishKey());
    if (wantedConnections() != before)
        Q_EMIT changed();
}

int HNntpDistributor::maxConnections() const
{
    return qMin(wantedConnections(), m_limit);
}

bool HNntpDistributor::isOpen() const
{
    return m_open;
}

void HNntpDistributor::open()
{
    m_open = true;
}

void HNntpDistributor::close()
{
    m_open = false;
    setMaxConnectionsMax(cautiousLimit);
}
