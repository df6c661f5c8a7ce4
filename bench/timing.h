// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <utility>
#include <vector>

/// Times are in microseconds.
namespace timing {

using Action = std::function<void()>;

/// The value in the middle.
double medianOf(std::vector<double> values);

/// The medians of two actions that take turns, so that a busy machine slows both alike, after a run
/// of each that warms the caches. What comes before the one is not measured.
std::pair<double, double> mediansOf(
    int runs, const Action &one, const Action &other, const Action &beforeOne = [] {});

} // namespace timing
