// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/bookmarkprovider.h>

BookmarkProvider::BookmarkProvider(QObject *parent)
    : QObject(parent)
{
}

BookmarkProvider::~BookmarkProvider() = default;
