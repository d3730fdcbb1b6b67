// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QVector>

#include <algorithm>

/// How long @p work takes, in milliseconds.
template <class Work> double milliseconds(const Work &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

/// The one in the middle of @p values, of which there are some.
inline double median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}
