// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace search {

/// The place of a name in the order of pages. A page is fetched by the key of its neighbour, never
/// by its number, so that the last one costs no more than the first.
struct PageKey
{
    QString name {};
    QString sex {}; ///< B or G
    QString origin {};
    QString meaning {};

    bool operator==(const PageKey &) const = default;
};

// The statements of a browse. The clause is that of criteriaClause(); all texts end in a blank.

/// How many names a clause finds in all.
QString countQuery(const QString &clause);
/// How many names are ticked, on this page or elsewhere.
QString tickCountQuery();
/// The first page, in order.
QString firstPageQuery(const QString &clause);

/// The up to 100 names behind a key, or before it, yet without their order.
QString pageAfterQuery(const QString &clause, const PageKey &key);
QString pageBeforeQuery(const QString &clause, const PageKey &key);
/// The order of pages, which goes behind pageAfterQuery().
QString forwardOrder();
/// Goes behind pageBeforeQuery(), so that the names next to the key come first: only the names
/// run backwards, what names of one spelling are told apart by runs forwards as ever.
QString backwardOrder();

/// Puts the last names of a browse into the scratch table.
/// @param rows  how many, as a text
QString lastPageInsert(const QString &clause, const QString &rows);
/// Reads the scratch table in the order of pages, and empties it.
QString lastPageQuery();
QString lastPageDelete();

} // namespace search
