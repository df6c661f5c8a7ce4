// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "bench/timing.h"

#include <QElapsedTimer>

#include <algorithm>

namespace timing {

namespace {

double timeOf(const Action &action)
{
    QElapsedTimer timer;
    timer.start();
    action();
    return double(timer.nsecsElapsed()) / 1000.0;
}

} // namespace

double medianOf(std::vector<double> values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

std::pair<double, double> mediansOf(int runs, const Action &one, const Action &other,
                                    const Action &beforeOne)
{
    beforeOne();
    one();
    other();
    std::vector<double> times;
    std::vector<double> otherTimes;
    for (int i = 0; i < runs; ++i) {
        beforeOne();
        times.push_back(timeOf(one));
        otherTimes.push_back(timeOf(other));
    }
    return {medianOf(std::move(times)), medianOf(std::move(otherTimes))};
}

} // namespace timing
