// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "newsgroupcachereader.h"

#include <utility>

NewsgroupCacheReader::NewsgroupCacheReader(const QString &file)
    : m_file(file)
{
}

// What nobody took goes under the mutex too: the thread that wrote it has ended, but not for everybody to
// see.
NewsgroupCacheReader::~NewsgroupCacheReader()
{
    take();
}

newsgroupcache::Contents NewsgroupCacheReader::take()
{
    wait();
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_contents, {});
}

void NewsgroupCacheReader::release(NewsgroupCacheReader *reader)
{
    constexpr unsigned long patience = 2000;
    if (reader && reader->wait(patience))
        delete reader;
}

void NewsgroupCacheReader::run()
{
    newsgroupcache::Contents contents = newsgroupcache::read(m_file);
    const std::lock_guard lock(m_mutex);
    m_contents = std::move(contents);
}
