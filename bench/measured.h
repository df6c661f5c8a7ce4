// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "bench/bareengine.h"
#include "bench/statements.h"
#include "bench/timing.h"

class Table;

/// A dictionary of some size, opened by the program and beside it by the bare engine; what is
/// measured with both goes into a table.
class Measured
{
public:
    Measured(Table &table, int names);

    int names() const { return m_names; }
    const BareEngine &bare() const { return m_bare; }

    /// Statements of the program, beside those that a person would write.
    void statements(const statements::Pair &pair) const;

    /// An action of the user's, beside the statements that it runs, on the bare engine.
    /// @param before  puts the screen into the state for it; not measured
    void action(
        const char *name, int runs, const timing::Action &action,
        const timing::Action &before = [] {}) const;

private:
    Table &m_table;
    int m_names;
    BareEngine m_bare;
};
