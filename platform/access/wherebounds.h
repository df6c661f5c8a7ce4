// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/access/sqltokens.h"

#include <QSet>

#include <span>

namespace dbaccess {

/// A stretch of a statement and the condition that takes its place.
struct Bound
{
    qsizetype position = 0; ///< in the statement, from 0
    qsizetype length = 0;   ///< 0 for a condition that is added, and begins with " and "
    QString condition;
};

/// Conditions that say what a "where" clause says, or follow from it, and let the engine read
/// straight off an index.
///
/// - A page's key is a chain of "or"s, for which the engine would visit every row. It is a
///   comparison of rows, which takes its place:
///   ((a > 'x') or (a = 'x' and b > 'y'))  ->  (a, b) > ('x', 'y')
/// - A pattern with a fixed beginning, from a letter or sign on, lies in a range:
///   a like 'Än%' -> and a >= 'Än' and a < 'Än' followed by the last character of all.
///   If the beginning has no accents and "%" alone follows it, the range is the very same
///   condition and takes the pattern's place. An end of the range that the key has already passed
///   is left out, or the engine might read the index from there.
///
/// None changes which rows are found. Patterns are bounded only on columns ordered by the
/// dictionary's collation, given in lower case.
///
/// @param condition  the tokens between "where" and the end of the clause
std::vector<Bound> impliedBounds(std::span<const SqlToken> condition,
                                 const QSet<QString> &textColumns);

} // namespace dbaccess
