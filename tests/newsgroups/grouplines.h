// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "newsgrouptable.h"

#include <QByteArrayList>
#include <QStringList>

/// The table of a server that lists @p groups and describes some of them in @p descriptions.
NewsgroupTable tableOf(const QByteArrayList &groups, const QByteArrayList &descriptions = {});
/// All names of @p table in its order.
QStringList namesIn(const NewsgroupTable &table);
/// As many newsgroups as a large server has, with names and descriptions like theirs.
NewsgroupTable largeTable(int groups);
