// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QMimeData;

/// What a drag of newsgroups carries: their names for whoever keeps newsgroups, and as text for all others.
namespace newsgroupdrag {

QString mimeType();
/// The caller owns what it gets; null when there are no @p names.
QMimeData *mimeData(const QStringList &names);

} // namespace newsgroupdrag
