// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <memory>

class QMimeData;

/// What other programs drag.
namespace dragdata {

std::unique_ptr<QMimeData> newsgroups(const QStringList &names);

/// One record without children.
std::unique_ptr<QMimeData> record(qint32 mark, qint64 id, qint64 parentId, const QString &name);

} // namespace dragdata
