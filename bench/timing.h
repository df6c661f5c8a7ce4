// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <utility>

/// Times are in microseconds.
namespace timing {

using Action = std::function<void()>;

/// The median of many runs, after one that warms the caches. What comes before each run is not
/// measured.
double medianOf(
    int runs, const Action &action, const Action &before = [] {});

/// The medians of two actions that take turns, so that a busy machine slows both alike.
std::pair<double, double> mediansOf(int runs, const Action &one, const Action &other);

} // namespace timing
