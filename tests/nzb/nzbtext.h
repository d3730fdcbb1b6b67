// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// NZB documents as tests need them.
namespace nzbtext {

/// A document with @p content in its root element.
QByteArray document(const QByteArray &content);
/// A whole file element with one segment.
QByteArray file(const QByteArray &subject, qint64 bytes = 1000, qint64 date = 1'700'000'000);
/// A document with @p files files of @p segments segments each, "Part 1" and so on.
QByteArray many(int files, int segments);

} // namespace nzbtext
