// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/access/sqltokens.h"

#include <QSet>

#include <span>

namespace dbaccess {

/// A condition to be added to a statement, behind the character at the given place.
struct Bound
{
    qsizetype position = 0; ///< in the statement, from 0
    QString condition;      ///< begins with " and "
};

/// Conditions that follow from a "where" clause and let the engine read straight off an index.
///
/// - A page's key is a chain of "or"s, each branch of which bounds the same first column; the
///   engine by itself would visit every row for it:
///   ((a > 'x') or (a = 'x' and b > 'y'))  ->  and a >= 'x'
/// - A pattern with a fixed beginning is a range:
///   a like 'An%'  ->  and a >= 'An' and a < 'An' followed by the last character of all
///
/// Neither changes which rows are found. Patterns are bounded only on columns ordered by the
/// dictionary's collation, given in lower case.
///
/// @param condition  the tokens between "where" and the end of the clause
std::vector<Bound> impliedBounds(std::span<const SqlToken> condition,
                                 const QSet<QString> &textColumns);

} // namespace dbaccess
