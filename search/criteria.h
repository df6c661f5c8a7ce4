// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace search {

enum class Sex { Boy, Girl, Both };

/// How the text of a Search is compared with the names, in the order of the drop-down list.
enum class NameRule { Exact, StartsWith, EndsWith, Contains };

/// What a List browse compares its letter with.
enum class ListField { Name, Meaning, Origin };

/// The origin that stands for all of them.
inline constexpr QStringView allOrigins = u"All";

/// The criteria of a Search, as chosen and typed. Texts are neither trimmed nor escaped here.
struct SearchCriteria
{
    Sex sex = Sex::Boy;
    QString name {}; ///< empty: any
    NameRule nameRule = NameRule::Exact;
    QString origin {};  ///< empty or allOrigins: any
    QString meaning {}; ///< a text within the meaning; empty: any
    bool tickedOnly = false;

    bool operator==(const SearchCriteria &) const = default;
};

/// The criteria of a List browse: all names (or meanings, or origins) that begin with a letter.
struct ListCriteria
{
    ListField field = ListField::Name;
    QString letter {};
    Sex sex = Sex::Boy;

    bool operator==(const ListCriteria &) const = default;
};

/// The "where" clause of a browse over the three tables of the dictionary, ending in a blank.
QString criteriaClause(const SearchCriteria &criteria);
QString criteriaClause(const ListCriteria &criteria);

} // namespace search
