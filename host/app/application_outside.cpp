// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "application.h"

#include "detailsdock.h"
#include "outsidelink.h"

#include <halvora/connectorplugin.h>
#include <halvora/coreplugininterface.h>
#include <halvora/mainwindow.h>

#include <QFileDialog>

#include <algorithm>

QString Application::ownScheme() const
{
    const ConnectorPlugin *plugin = connectorPlugin();
    return plugin ? plugin->urlScheme() : QString();
}

void Application::answerCall(const QString &argument)
{
    m_window->bringToFront();
    if (!argument.isEmpty())
        openFromOutside(argument);
}

void Application::openFromOutside(const QString &text)
{
    whenReady([this, text] { open(OutsideLink::parse(text, ownScheme())); });
}

bool Application::open(const OutsideLink &link)
{
    switch (link.kind()) {
    case OutsideLink::Refused:
        m_window->showNotice(link.refusal());
        return false;
    case OutsideLink::FileGroup:
        m_details->showFileGroup(link.fileGroup());
        return true;
    case OutsideLink::File:
        openFile(link.file());
        return true;
    }
    return false;
}

void Application::openFile(const QString &path)
{
    // A plug-in that handles a file has done so by saying it.
    const bool isHandled =
        std::any_of(m_plugins.cbegin(), m_plugins.cend(),
                    [&path](const CorePluginInterface *plugin) { return plugin->handlesFile(path); });
    if (!isHandled)
        m_details->showFile(path);
}

void Application::chooseFile()
{
    auto *dialog = new QFileDialog(m_window.get(), tr("Open an NZB File"), QString(),
                                   tr("NZB files (*.nzb);;All files (*)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this,
            [this](const QString &path) { whenReady([this, path] { openFile(path); }); });
    dialog->open();
}
