// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <map>
#include <set>
#include <vector>

/// Times in microseconds, ours beside those of the bare engine.
struct Times
{
    double ours = 0;
    double bare = 0;
};

/// What was measured: a row for each action, and for each size of the dictionary a group of
/// columns.
class Table
{
public:
    void add(const QString &action, int names, const Times &times);

    /// Prints it, times in milliseconds.
    void print() const;

private:
    struct Row
    {
        QString action;
        std::map<int, Times> times; ///< by the number of names
    };

    std::vector<Row> m_rows;
    std::set<int> m_sizes;
};
