// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hautosearchservice.h>

HAutoSearchService::HAutoSearchService(QObject *parent)
    : QObject(parent)
{
}

int HAutoSearchService::checkInterval() const
{
    return m_checkInterval;
}

void HAutoSearchService::setCheckInterval(int seconds)
{
    if (seconds == m_checkInterval)
        return;
    m_checkInterval = seconds;
    Q_EMIT checkIntervalChanged(seconds);
}
