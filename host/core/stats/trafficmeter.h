// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QtGlobal>

#include <atomic>

/// Counts the bytes that came from news servers since the program started. Any thread; the count only grows,
/// so that each reader keeps the value it saw last and looks at the difference.
class HALVORA_CORE_EXPORT TrafficMeter {
public:
    TrafficMeter() = default;
    Q_DISABLE_COPY(TrafficMeter)

    void addNntpDown(qint64 bytes) noexcept { m_nntpDown.fetch_add(bytes, std::memory_order_relaxed); }
    qint64 nntpDown() const noexcept { return m_nntpDown.load(std::memory_order_relaxed); }

private:
    std::atomic<qint64> m_nntpDown{0};
};
