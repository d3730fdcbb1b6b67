// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "application.h"

#include <halvora/abstractprovider.h>
#include <halvora/connectorplugin.h>
#include <halvora/core.h>
#include <halvora/mainwindow.h>
#include <halvora/storagemanager.h>

#include <chrono>

namespace {

constexpr std::chrono::seconds retryInterval(1);

} // namespace

// The provider asks for its bookmarks under the same name.
bool Application::isStoreLocked() const
{
    return m_provider && m_core->storage()->isDatabaseLocked(m_provider->connectorPlugin()->configName());
}

void Application::waitForStore()
{
    m_window->setLoginPossible(false, false);
    m_window->restorePlace();
    m_window->show();
    showLastingNotice();
    if (!m_options.screenshot.isEmpty())
        takePicture(m_options.screenshot);
    m_storeTimer->setObjectName(QStringLiteral("halvora.storeTimer"));
    connect(m_storeTimer, &QTimer::timeout, this, &Application::retryStore);
    m_storeTimer->start(retryInterval);
}

void Application::retryStore()
{
    if (isStoreLocked())
        return;
    m_storeTimer->stop();
    makeReady();
    begin();
}

void Application::whenReady(std::function<void()> call)
{
    if (m_isReady && m_keptCalls.empty())
        return call();
    if (int(m_keptCalls.size()) < maxKeptCalls)
        m_keptCalls.push_back(std::move(call));
    else
        m_window->showNotice(tr("Too many links and files are waiting already; the last one was not kept."));
}

// The store is closed after the window and may report a failure then.
void Application::showLastingNotice()
{
    if (!m_window)
        return;
    m_window->showLastingNotice(m_isReady ? m_core->storage()->writeProblem()
                                          : tr("Waiting for another program that uses the bookmarks file…"));
}
