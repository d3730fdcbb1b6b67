// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#pragma once

namespace corvia {

/// Tells every waiting thread at once that the service ends. Once raised it stays raised. Any thread.
class StopSignal {
public:
    StopSignal();
    ~StopSignal();
    StopSignal(const StopSignal &) = delete;
    StopSignal &operator=(const StopSignal &) = delete;

    void raise();
    bool raised() const;
    /// A descriptor that is readable from raise() on, to be given to poll() next to a socket.
    int descriptor() const;

private:
    int descriptor_;
};

} // namespace corvia
