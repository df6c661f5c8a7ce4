// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "bench/timing.h"

#include <QElapsedTimer>

#include <algorithm>
#include <vector>

namespace timing {

namespace {

double timeOf(const Action &action)
{
    QElapsedTimer timer;
    timer.start();
    action();
    return double(timer.nsecsElapsed()) / 1000.0;
}

double middleOf(std::vector<double> times)
{
    const auto middle = times.begin() + std::ptrdiff_t(times.size() / 2);
    std::ranges::nth_element(times, middle);
    return *middle;
}

} // namespace

double medianOf(int runs, const Action &action, const Action &before)
{
    before();
    action();
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        before();
        times.push_back(timeOf(action));
    }
    return middleOf(std::move(times));
}

std::pair<double, double> mediansOf(int runs, const Action &one, const Action &other)
{
    one();
    other();
    std::vector<double> times;
    std::vector<double> otherTimes;
    for (int i = 0; i < runs; ++i) {
        times.push_back(timeOf(one));
        otherTimes.push_back(timeOf(other));
    }
    return {middleOf(std::move(times)), middleOf(std::move(otherTimes))};
}

} // namespace timing
