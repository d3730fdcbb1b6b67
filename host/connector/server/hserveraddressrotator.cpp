// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hserveraddressrotator.h>

HServerAddressRotator::HServerAddressRotator(const QString &configName,
                                             const QList<HServerAddress> &addresses)
    : m_configName(configName)
    , m_addresses(addresses)
{
}

QString HServerAddressRotator::configName() const
{
    return m_configName;
}

QList<HServerAddress> HServerAddressRotator::addresses() const
{
    return m_addresses;
}

HServerAddress HServerAddressRotator::current() const
{
    return m_addresses.value(m_current);
}

void HServerAddressRotator::rotate()
{
    if (!m_addresses.isEmpty())
        m_current = (m_current + 1) % m_addresses.size();
}
