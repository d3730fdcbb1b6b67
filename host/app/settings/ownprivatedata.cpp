// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "ownprivatedata.h"

#include "logincontroller.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/core.h>
#include <halvora/hmessagemanager.h>
#include <halvora/pluginmanager.h>
#include <halvora/privatedataregistry.h>
#include <halvora/statsplugin.h>

#include <QSettings>

#include <utility>

namespace {

void clearTraffic(const Core &core)
{
    const QList<IPlugin *> plugins = core.plugin()->plugins();
    for (IPlugin *plugin : plugins) {
        if (auto *stats = dynamic_cast<StatsPlugin *>(plugin))
            stats->clear();
    }
}

} // namespace

OwnPrivateData::OwnPrivateData(Core *core, ConnectorPlugin *plugin, LoginController *login)
{
    add(core,
        {"messages", [] { return tr("Messages"); },
         [] {
             return tr("The messages of every account, their dated copies and files put aside as "
                       "damaged. Those that you deleted before stay away; the account service may send the "
                       "others again.");
         },
         [plugin] { plugin->connector()->messages()->clear(); }});
    add(core, {"traffic", [] { return tr("Traffic history"); },
               [] {
                   return tr("What this program counted by day and month. The account service keeps its own "
                             "counts.");
               },
               [core] { clearTraffic(*core); }});
    add(core, {"newsgroups", [] { return tr("Kept list of newsgroups"); },
               [] {
                   return tr("The list of the news server's newsgroups. The next login loads it again; your "
                             "bookmarks stay.");
               },
               [plugin] { plugin->forgetNewsgroups(); }});
    add(core, {"password", [] { return tr("Kept password"); },
               [] {
                   return tr("The password in the desktop's keyring. Your user name stays, and so does the "
                             "password of another account until it logs out.");
               },
               [login] { login->forgetPassword(); }});
}

void OwnPrivateData::add(Core *core, PrivateDataBox::Kind kind)
{
    m_boxes.push_back(std::make_unique<PrivateDataBox>(&core->settings(), std::move(kind)));
    core->privateData()->registerPrivateData(m_boxes.back().get());
}
