// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "bench/table.h"

#include <algorithm>
#include <cstdio>

namespace {

/// Milliseconds with about three digits that count.
QByteArray milliseconds(double microseconds)
{
    const double value = microseconds / 1000;
    const int decimals = value < 1 ? 3 : value < 10 ? 2 : value < 100 ? 1 : 0;
    return QByteArray::number(value, 'f', decimals);
}

void printTimes(const Times &times)
{
    std::printf(" |%8s %8s %5.2f", milliseconds(times.ours).constData(),
                milliseconds(times.bare).constData(), times.ours / times.bare);
}

} // namespace

void Table::add(const QString &action, int names, const Times &times)
{
    m_sizes.insert(names);
    auto row = std::ranges::find(m_rows, action, &Row::action);
    if (row == m_rows.end())
        row = m_rows.insert(row, {action, {}});
    row->times[names] = times;
}

void Table::print() const
{
    std::printf("%-26s", "");
    for (const int size : m_sizes)
        std::printf(" |%17d names", size);
    std::printf("\n%-26s", "times in milliseconds");
    for (std::size_t i = 0; i < m_sizes.size(); ++i)
        std::printf(" |%8s %8s %5s", "ours", "bare", "ratio");
    std::printf("\n");
    for (const Row &row : m_rows) {
        std::printf("%-26s", qPrintable(row.action));
        for (const int size : m_sizes) {
            if (const auto times = row.times.find(size); times != row.times.end())
                printTimes(times->second);
            else
                std::printf(" |%23s", "");
        }
        std::printf("\n");
    }
}
