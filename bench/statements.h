// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "bench/bareengine.h"

#include <QByteArrayList>
#include <QStringList>

namespace statements {

/// Statements of the program that yield some rows, and the best ones that a person would write by
/// hand for the same rows.
struct Pair
{
    QString name;
    QStringList ours;
    QByteArrayList bare;
};

/// First pages and counts of several browses.
std::vector<Pair> starts();

/// The moves to the next and the previous page near the beginning, in the middle and near the end
/// of two browses, and those to the last page, which goes through "tbltemp" on both sides:
/// the bare engine has to have its own in memory.
std::vector<Pair> moves(const BareEngine &bare);

} // namespace statements
