// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "privatedatabox.h"

#include <QCoreApplication>

#include <memory>
#include <vector>

class ConnectorPlugin;
class Core;
class LoginController;

/// The private data that the program itself keeps, whatever the provider: messages, traffic, newsgroups and
/// the password, each with a box of its own.
class OwnPrivateData {
    Q_DECLARE_TR_FUNCTIONS(OwnPrivateData)
public:
    /// Registers the boxes. Everything named outlives this object, which lives until the registry is cleared.
    OwnPrivateData(Core *core, ConnectorPlugin *plugin, LoginController *login);
    Q_DISABLE_COPY(OwnPrivateData)

private:
    void add(Core *core, PrivateDataBox::Kind kind);

    std::vector<std::unique_ptr<PrivateDataBox>> m_boxes;
};
