// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hjobresulthandler.h>

HJobResultHandler::HJobResultHandler(Connector *connector, QObject *parent)
    : QObject(parent)
    , m_connector(connector)
{
}

Connector *HJobResultHandler::connector() const
{
    return m_connector;
}
