// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "stopsignal.h"

#include <cerrno>
#include <poll.h>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>

namespace corvia {

StopSignal::StopSignal()
    : descriptor_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (descriptor_ < 0) {
        throw std::system_error(errno, std::generic_category(), "eventfd");
    }
}

StopSignal::~StopSignal()
{
    ::close(descriptor_);
}

void StopSignal::raise()
{
    // The counter is never read, so the descriptor wakes every thread that watches it, not only the first.
    ::eventfd_write(descriptor_, 1);
}

bool StopSignal::raised() const
{
    pollfd watched = {descriptor_, POLLIN, 0};
    return ::poll(&watched, 1, 0) > 0;
}

int StopSignal::descriptor() const
{
    return descriptor_;
}

} // namespace corvia
